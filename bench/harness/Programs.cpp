#include "bench/harness/Programs.h"

#include <filesystem>
#include <stdexcept>

std::string PathOfProgram(const std::string& name) {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}

GSubprocess* StartProgram(const std::string& name, const std::vector<std::string>& arguments,
                          GSubprocessFlags flags) {
  const std::string path = PathOfProgram(name);
  std::vector<const gchar*> command = {path.c_str()};
  for (const std::string& argument : arguments) {
    command.push_back(argument.c_str());
  }
  command.push_back(nullptr);
  GError* error = nullptr;
  GSubprocess* const process = g_subprocess_newv(command.data(), flags, &error);
  if (process == nullptr) {
    const std::string reason = error->message;
    g_error_free(error);
    throw std::runtime_error(reason);
  }
  return process;
}

std::string RunProgram(const std::string& name, const std::vector<std::string>& arguments) {
  GSubprocess* const process = StartProgram(name, arguments, G_SUBPROCESS_FLAGS_STDOUT_PIPE);
  gchar* output = nullptr;
  g_subprocess_communicate_utf8(process, nullptr, nullptr, &output, nullptr, nullptr);
  const bool succeeded = g_subprocess_get_successful(process) && output != nullptr;
  const std::string text = output != nullptr ? output : "";
  g_free(output);
  g_object_unref(process);
  if (!succeeded) {
    throw std::runtime_error(name + " failed");
  }
  return text;
}
