#include "support/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bttest {

namespace {

std::vector<std::string> Changed(const ChildProcess::Environment& changes) {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view text = *variable;
    if (changes.count(std::string(text.substr(0, text.find('=')))) == 0) {
      variables.emplace_back(text);
    }
  }
  for (const auto& [name, value] : changes) {
    if (value) {
      variables.push_back(name + "=" + *value);
    }
  }
  return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  for (std::string& string : strings) {
    pointers.push_back(string.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

std::string Content(int file) {
  struct stat status = {};
  fstat(file, &status);
  std::string text(static_cast<std::size_t>(status.st_size), '\0');
  const ssize_t got = pread(file, text.data(), text.size(), 0);
  text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
  return text;
}

/// Says of a process what script/valgrind cannot see: why it may have no summary of it.
void NoteForValgrind(pid_t pid, const char* what, const std::string& text) {
  if (const char* const folder = std::getenv("BTTEST_CHILDREN")) {
    std::ofstream(std::string(folder) + "/" + std::to_string(pid) + "." + what) << text << '\n';
  }
}

/// In the child, which may only do what is safe after a fork among threads. Does not return.
[[noreturn]] void Become(char** argv, char** environment, pid_t parent, int output, int errors, int report) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    _exit(127);
  }
  const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (dup2(nothing, STDIN_FILENO) >= 0 && dup2(output, STDOUT_FILENO) >= 0 &&
      dup2(errors, STDERR_FILENO) >= 0) {
    execvpe(argv[0], argv, environment);
  }
  const int reason = errno;
  [[maybe_unused]] const ssize_t written = write(report, &reason, sizeof reason);
  _exit(127);
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& argv, const Environment& changes) {
  std::vector<std::string> arguments = argv;
  std::vector<std::string> variables = Changed(changes);
  std::vector<char*> argumentPointers = Pointers(arguments);
  std::vector<char*> variablePointers = Pointers(variables);
  int report[2];
  // Appending, because the process and its own children may write through descriptors of their own.
  m_output = memfd_create("output", MFD_CLOEXEC);
  m_errors = memfd_create("errors", MFD_CLOEXEC);
  if (m_output < 0 || m_errors < 0 || pipe2(report, O_CLOEXEC) != 0) {
    throw std::runtime_error(std::string("preparing to start a process: ") + std::strerror(errno));
  }
  fcntl(m_output, F_SETFL, O_APPEND);
  fcntl(m_errors, F_SETFL, O_APPEND);

  const pid_t parent = getpid();
  m_pid = fork();
  if (m_pid == 0) {
    Become(argumentPointers.data(), variablePointers.data(), parent, m_output, m_errors, report[1]);
  }
  int reason = m_pid < 0 ? errno : 0;
  close(report[1]);
  if (m_pid > 0 && read(report[0], &reason, sizeof reason) > 0) {
    waitpid(m_pid, nullptr, 0);
  }
  close(report[0]);
  if (reason != 0) {
    close(m_output);
    close(m_errors);
    throw std::runtime_error("starting " + argv.at(0) + ": " + std::strerror(reason));
  }
  NoteForValgrind(m_pid, "became", argv.at(0));
}

ChildProcess::~ChildProcess() {
  if (std::getenv("BTTEST_UNDER") != nullptr) {
    // valgrind reports on a process that is asked to end, but cannot on one that is killed.
    Signal(SIGTERM);
    Wait();
  }
  Signal(SIGKILL);
  Wait();
  close(m_output);
  close(m_errors);
}

bool ChildProcess::IsAlive() {
  int status = 0;
  if (!m_status && waitpid(m_pid, &status, WNOHANG) == m_pid) {
    m_status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  }
  return !m_status;
}

std::optional<int> ChildProcess::Wait(std::chrono::milliseconds bound) {
  WaitUntil([this] { return !IsAlive(); }, bound);
  return m_status;
}

void ChildProcess::Signal(int signal) {
  if (IsAlive()) {
    kill(m_pid, signal);
  }
}

void ChildProcess::Kill() {
  if (IsAlive()) {
    NoteForValgrind(m_pid, "killed", "by its test");
  }
  Signal(SIGKILL);
  Wait();
}

std::string ChildProcess::Output() const { return Content(m_output); }

std::string ChildProcess::Errors() const { return Content(m_errors); }

bool ChildProcess::WaitForOutput(const std::string& text, std::chrono::milliseconds bound) {
  const auto isThere = [&] { return Output().find(text) != std::string::npos; };
  WaitUntil([&] { return isThere() || !IsAlive(); }, bound);
  return isThere();
}

}  // namespace bttest
