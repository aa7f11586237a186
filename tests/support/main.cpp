// The main function of all tests. Nothing but the list of its tests is to be had from a test executable
// outside of the sandbox, so that it is safe to start one by hand.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

constexpr const char* kIsInSandbox = "BTTEST_IN_SANDBOX";

bool OnlyLists(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--gtest_list_tests", std::strlen("--gtest_list_tests")) == 0 ||
        std::strcmp(argv[i], "--help") == 0) {
      return true;
    }
  }
  return false;
}

std::string ThisExecutable() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

/// Becomes this executable once more, in the sandbox, with the service of the same build if that is there.
int EnterSandbox(int argc, char** argv) {
  setenv(kIsInSandbox, "1", 1);
  // GLib's locks are its own, so ThreadSanitizer cannot see how it orders what it does for several threads:
  // it is to judge our code alone, in this process and in those that it starts.
  setenv("TSAN_OPTIONS", "ignore_noninstrumented_modules=1", 0);
  // That of another build, or of another architecture, if the environment names it.
  const char* const chosen = std::getenv("BTTEST_SERVICE");
  const char* const own = access(BTTEST_SERVICE, X_OK) == 0 ? BTTEST_SERVICE : "empty";
  const char* const service = chosen != nullptr ? chosen : own;
  std::vector<std::string> command{BTTEST_SANDBOX, "--service", service};
  // What script/valgrind puts before each test. From outside, it would look at the sandbox.
  std::istringstream under(std::getenv("BTTEST_UNDER") != nullptr ? std::getenv("BTTEST_UNDER") : "");
  command.insert(command.end(), std::istream_iterator<std::string>(under), {});
  command.push_back(ThisExecutable());
  std::vector<char*> pointers;
  pointers.reserve(command.size() + static_cast<std::size_t>(argc));
  for (std::string& word : command) {
    pointers.push_back(word.data());
  }
  for (char** argument = argv + 1; *argument != nullptr; ++argument) {
    pointers.push_back(*argument);
  }
  pointers.push_back(nullptr);
  execv(pointers[0], pointers.data());
  std::fprintf(stderr, "%s cannot be started: %s\n", BTTEST_SANDBOX, std::strerror(errno));
  return 125;
}

}  // namespace

int main(int argc, char** argv) {
  if (!OnlyLists(argc, argv) && std::getenv(kIsInSandbox) == nullptr) {
    return EnterSandbox(argc, argv);
  }
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
