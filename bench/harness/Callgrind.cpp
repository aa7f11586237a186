#include "bench/harness/Callgrind.h"

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "bench/counted/CountedFunctions.h"
#include "bench/harness/Programs.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kPlainStringFunctions =
    "GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2,-AVX,-AVX_Fast_Unaligned_Load,-ERMS,-FSRM,-SSSE3,-SSE4_1,-SSE4_2";

/// The folder into which callgrind writes, for as long as this object lives.
class OutputFolder {
 public:
  OutputFolder() {
    const OwnedText folder(g_dir_make_tmp("bench-XXXXXX", nullptr));
    if (folder == nullptr) {
      throw std::runtime_error("there is no place for what callgrind writes");
    }
    m_path = folder.get();
  }
  ~OutputFolder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
  }
  OutputFolder(const OutputFolder&) = delete;
  OutputFolder& operator=(const OutputFolder&) = delete;

  const std::string& Path() const { return m_path; }

 private:
  std::string m_path;
};

/// The arguments of env(1) with which a program runs under callgrind.
std::vector<std::string> UnderCallgrind(const std::string& folder, const std::vector<std::string>& options,
                                        const std::string& name, const std::vector<std::string>& arguments) {
  const std::string program = PathOfProgram(name);
  if (!fs::exists(program)) {
    throw std::runtime_error(name + " is not built; script/bootstrap bench installs what it needs");
  }
  std::vector<std::string> command = {kPlainStringFunctions,    "valgrind",
                                      "--tool=callgrind",       "--quiet",
                                      "--separate-threads=yes", "--callgrind-out-file=" + folder + "/out"};
  command.insert(command.end(), options.begin(), options.end());
  command.push_back(program);
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

/// One file of callgrind's: what made it write the file, and how many instructions it had counted.
struct Dump {
  std::string trigger;
  double instructions = 0;
};

Dump ReadDump(const fs::path& file) {
  constexpr std::string_view kTrigger = "desc: Trigger: ";
  constexpr std::string_view kTotals = "totals: ";
  Dump dump;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(kTrigger, 0) == 0) {
      dump.trigger = line.substr(kTrigger.size());
    } else if (line.rfind(kTotals, 0) == 0) {
      dump.instructions = std::stod(line.substr(kTotals.size()));
    }
  }
  return dump;
}

/// All dumps, of the threads whose files end with a text.
std::vector<Dump> ReadDumps(const std::string& folder, std::string_view end) {
  std::vector<Dump> dumps;
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (name.size() >= end.size() && name.compare(name.size() - end.size(), std::string::npos, end) == 0) {
      dumps.push_back(ReadDump(entry.path()));
    }
  }
  return dumps;
}

/// What was counted in all threads until the end.
double CountOfWholeRun(const std::string& folder) {
  double instructions = 0;
  for (const Dump& dump : ReadDumps(folder, "")) {
    instructions += dump.instructions;
  }
  if (instructions <= 0) {
    throw std::runtime_error("callgrind has counted nothing");
  }
  return instructions;
}

}  // namespace

void RequireCallgrind() {
  if (OwnedText(g_find_program_in_path("valgrind")) == nullptr) {
    throw std::runtime_error("valgrind is not installed: script/bootstrap bench installs it");
  }
}

double CostOfPart(const PartCosts& costs, const std::string& part) {
  const auto cost = costs.find(part);
  if (cost == costs.end() || cost->second <= 0) {
    throw std::runtime_error("nothing was counted for " + part);
  }
  return cost->second;
}

PartCosts CountParts(const std::string& name) {
  const OutputFolder folder;
  std::vector<std::string> options = {"--collect-atstart=no"};
  for (const char* const function : kTogglingFunctions) {
    options.push_back(std::string("--toggle-collect=") + function);
  }
  RunProgram("/usr/bin/env", UnderCallgrind(folder.Path(), options, name, {}));

  constexpr std::string_view kRequest = "Client Request: ";
  PartCosts costs;
  for (const Dump& dump : ReadDumps(folder.Path(), "-01")) {
    if (dump.trigger.rfind(kRequest, 0) == 0) {
      costs[dump.trigger.substr(kRequest.size())] = dump.instructions;
    }
  }
  return costs;
}

double CountRun(const std::string& name, const std::vector<std::string>& arguments) {
  const OutputFolder folder;
  RunProgram("/usr/bin/env", UnderCallgrind(folder.Path(), {}, name, arguments));
  return CountOfWholeRun(folder.Path());
}

struct CountedProcess::Output {
  OutputFolder folder;
};

CountedProcess::CountedProcess(const std::string& name, const std::vector<std::string>& arguments)
    : m_output(std::make_unique<Output>()),
      m_process(StartProgram(
          "/usr/bin/env", UnderCallgrind(m_output->folder.Path(), {}, name, arguments),
          static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE | G_SUBPROCESS_FLAGS_STDOUT_SILENCE))) {
}

CountedProcess::~CountedProcess() {
  g_subprocess_force_exit(m_process.get());
  g_subprocess_wait(m_process.get(), nullptr, nullptr);
}

double CountedProcess::End() {
  g_subprocess_send_signal(m_process.get(), SIGTERM);
  g_subprocess_wait(m_process.get(), nullptr, nullptr);
  return CountOfWholeRun(m_output->folder.Path());
}
