#ifndef BT_TESTS_PLATFORM_WORLD_H
#define BT_TESTS_PLATFORM_WORLD_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform_test {

/// A directory of its own for a test, gone with it.
class TempDirectory {
 public:
  TempDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "platform-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("no temporary directory");
    }
    m_path = name;
  }
  ~TempDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  TempDirectory(const TempDirectory&) = delete;
  TempDirectory& operator=(const TempDirectory&) = delete;

  std::string File(const std::string& name) const { return m_path / name; }

 private:
  std::filesystem::path m_path;
};

inline void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Runs work in a process of its own, which succeeds if work returns true. Returns the process id.
template <typename Work>
pid_t StartProcess(Work work) {
  const pid_t child = fork();
  if (child == 0) {
    // Not exit(): what the parent has yet to flush and destroy is not the child's.
    _exit(work() ? 0 : 1);
  }
  return child;
}

inline bool Succeeded(pid_t child) {
  int status = -1;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace platform_test

#endif
