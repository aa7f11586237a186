#ifndef TESTS_DRIVE_PROCESSUSAGE_H
#define TESTS_DRIVE_PROCESSUSAGE_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/types.h>

namespace btservice {

/// What a process has of the machine at the moment.
struct ProcessUsage {
  explicit ProcessUsage(pid_t pid) {
    const std::filesystem::path process = "/proc/" + std::to_string(pid);
    files = static_cast<int>(std::distance(std::filesystem::directory_iterator(process / "fd"), {}));
    std::ifstream status(process / "status");
    for (std::string word; status >> word;) {
      // What it has written to itself; files and segments that it shares with others do not count.
      if (word == "RssAnon:") {
        status >> kilobytes;
      }
    }
  }

  int files = 0;
  long kilobytes = 0;
};

}  // namespace btservice

#endif
