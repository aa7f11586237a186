#ifndef TESTS_UNIT_PLATFORM_FILES_H
#define TESTS_UNIT_PLATFORM_FILES_H

#include <fstream>
#include <iterator>
#include <string>

namespace platform_test {

inline void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace platform_test

#endif
