#ifndef TESTS_UNIT_PLATFORM_PROCESS_H
#define TESTS_UNIT_PLATFORM_PROCESS_H

#include <sys/wait.h>
#include <unistd.h>

namespace platform_test {

/// Runs work in a copy of this process, which succeeds if work returns true. Returns the process id.
template <typename Work>
pid_t StartProcess(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    // Not exit(): what the parent has yet to flush and destroy is not the child's.
    _exit(work() ? 0 : 1);
  }
  return child;
}

/// Waits for the process to end.
inline bool Succeeded(pid_t child) {
  int status = -1;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace platform_test

#endif
