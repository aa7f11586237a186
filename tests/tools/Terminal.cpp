#include "tools/Terminal.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace bttest {
namespace {

constexpr int kPollMs = 10;

std::vector<char*> Pointers(std::vector<std::string>& strings) {
  std::vector<char*> pointers(strings.size() + 1, nullptr);
  std::transform(strings.begin(), strings.end(), pointers.begin(),
                 [](std::string& string) { return string.data(); });
  return pointers;
}

}  // namespace

Terminal::Terminal(const std::vector<std::string>& argv) {
  std::vector<std::string> arguments = argv;
  std::vector<char*> pointers = Pointers(arguments);
  setenv("TERM", "xterm", 1);
  const winsize size{40, 200, 0, 0};
  m_pid = forkpty(&m_terminal, nullptr, nullptr, &size);
  if (m_pid < 0) {
    throw std::runtime_error("no terminal to be had");
  }
  if (m_pid == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    execv(pointers[0], pointers.data());
    _exit(127);
  }
  fcntl(m_terminal, F_SETFL, O_NONBLOCK);
}

Terminal::~Terminal() {
  if (m_pid > 0) {
    kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
  }
  close(m_terminal);
}

void Terminal::Type(const std::string& keys) {
  if (write(m_terminal, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
    throw std::runtime_error("the terminal takes no keys");
  }
}

void Terminal::Signal(int signal) { kill(m_pid, signal); }

bool Terminal::IsAsUsual() const {
  termios modes{};
  return tcgetattr(m_terminal, &modes) == 0 && (modes.c_lflag & (ECHO | ICANON)) == (ECHO | ICANON);
}

void Terminal::BeAsUsual() {
  termios modes{};
  tcgetattr(m_terminal, &modes);
  modes.c_lflag |= ECHO | ICANON;
  tcsetattr(m_terminal, TCSANOW, &modes);
}

bool Terminal::Read() {
  pollfd waiting{m_terminal, POLLIN, 0};
  if (poll(&waiting, 1, kPollMs) <= 0) {
    return true;
  }
  char buffer[4096];
  const ssize_t got = read(m_terminal, buffer, sizeof buffer);
  if (got > 0) {
    m_screen.append(buffer, static_cast<std::size_t>(got));
  }
  return got > 0 || errno == EAGAIN || errno == EINTR;
}

bool Terminal::WaitFor(const std::string& text, std::chrono::milliseconds bound) {
  std::size_t place = std::string::npos;
  const auto isThere = [&] {
    const bool goesOn = Read();
    place = m_screen.find(text, m_seen);
    return place != std::string::npos || !goesOn;
  };
  WaitUntil(isThere, bound);
  if (place == std::string::npos) {
    return false;
  }
  m_seen = place + text.size();
  return true;
}

std::optional<int> Terminal::Wait() {
  int status = 0;
  const auto hasEnded = [&] {
    Read();  // a full terminal would hold the program up
    return waitpid(m_pid, &status, WNOHANG) == m_pid;
  };
  if (!WaitUntil(hasEnded)) {
    return std::nullopt;
  }
  m_pid = -1;
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace bttest
