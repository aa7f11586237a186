#include "bench/harness/Programs.h"

#include <filesystem>
#include <stdexcept>

std::string PathOfProgram(const std::string& name) {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}

OwnedObject<GSubprocess> StartProgram(const std::string& name, const std::vector<std::string>& arguments,
                                      GSubprocessFlags flags) {
  const std::string path = PathOfProgram(name);
  std::vector<const gchar*> command = {path.c_str()};
  for (const std::string& argument : arguments) {
    command.push_back(argument.c_str());
  }
  command.push_back(nullptr);
  OwnedError error;
  OwnedObject<GSubprocess> process(g_subprocess_newv(command.data(), flags, error.Out()));
  if (process == nullptr) {
    throw std::runtime_error(error->message);
  }
  return process;
}

std::string RunProgram(const std::string& name, const std::vector<std::string>& arguments) {
  const OwnedObject<GSubprocess> process = StartProgram(name, arguments, G_SUBPROCESS_FLAGS_STDOUT_PIPE);
  OwnedText output;
  g_subprocess_communicate_utf8(process.get(), nullptr, nullptr, output.Out(), nullptr, nullptr);
  if (!g_subprocess_get_successful(process.get()) || output == nullptr) {
    throw std::runtime_error(name + " failed");
  }
  return output.get();
}
