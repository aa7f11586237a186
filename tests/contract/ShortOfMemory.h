#ifndef TESTS_CONTRACT_SHORTOFMEMORY_H
#define TESTS_CONTRACT_SHORTOFMEMORY_H

#include <cstddef>

namespace bttest {

/// While it lives, operator new fails for whatever has that size or is larger, in all threads. A test that
/// links this has its operators new and delete in place of the standard library's.
class ShortOfMemory {
 public:
  explicit ShortOfMemory(std::size_t size);
  ~ShortOfMemory();
  ShortOfMemory(const ShortOfMemory&) = delete;
  ShortOfMemory& operator=(const ShortOfMemory&) = delete;
};

}  // namespace bttest

#endif
