#ifndef TESTS_SUPPORT_THREADSTATE_H
#define TESTS_SUPPORT_THREADSTATE_H

#include <fstream>
#include <sstream>
#include <string>

#include <sys/types.h>

namespace bttest {

/// Whether a thread of this process is asleep, as it is when it waits for a lock. The thread is named by what
/// gettid() answers in it.
inline bool IsAsleep(pid_t thread) {
  std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
  std::stringstream content;
  content << file.rdbuf();
  const std::string text = content.str();
  const std::size_t endOfName = text.rfind(") ");
  return endOfName != std::string::npos && text[endOfName + 2] == 'S';
}

}  // namespace bttest

#endif
