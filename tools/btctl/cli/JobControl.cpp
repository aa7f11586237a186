#include "btctl/cli/JobControl.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <glib-unix.h>
#include <unistd.h>

namespace btctl {
namespace {

std::array<int, 2> ends{-1, -1};  // of the pipe from the signal handler to the main loop

void PassOn(int signal) {
  const int before = errno;
  const char byte = static_cast<char>(signal);
  [[maybe_unused]] const ssize_t written = write(ends[1], &byte, 1);
  errno = before;
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

int ReadingEnd() {
  if (pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) != 0) {
    ends = {-1, -1};
  }
  return ends[0];
}

}  // namespace

JobControl::JobControl(Reaction leave, Reaction comeBack)
    : m_leave(std::move(leave)),
      m_comeBack(std::move(comeBack)),
      m_signals(g_unix_fd_add(
          ReadingEnd(), G_IO_IN,
          [](gint file, GIOCondition, gpointer self) -> gboolean {
            char signal = 0;
            while (read(file, &signal, 1) == 1) {
              static_cast<JobControl*>(self)->Take(signal);
            }
            return G_SOURCE_CONTINUE;
          },
          this)) {
  Handle(SIGTSTP, PassOn);
  Handle(SIGCONT, PassOn);
}

JobControl::~JobControl() {
  Handle(SIGTSTP, SIG_DFL);
  Handle(SIGCONT, SIG_DFL);
  for (const int end : ends) {
    close(end);
  }
}

void JobControl::Take(char signal) {
  if (signal == SIGCONT) {
    m_comeBack();
    return;
  }
  m_leave();
  Handle(SIGTSTP, SIG_DFL);
  std::raise(SIGTSTP);  // goes on here; at once where there is no shell that could continue it
  Handle(SIGTSTP, PassOn);
  m_comeBack();
}

}  // namespace btctl
