#ifndef TESTS_FUZZ_GUARDEDMEMORY_H
#define TESTS_FUZZ_GUARDEDMEMORY_H

#include <cstddef>

namespace bttest {

/// Memory of an exact size, filled with zeros, whose end is the end of what may be touched: the byte behind
/// it cannot be read without a crash. Under AddressSanitizer neither can the byte before it.
class GuardedMemory {
 public:
  explicit GuardedMemory(std::size_t size);
  ~GuardedMemory();
  GuardedMemory(const GuardedMemory&) = delete;
  GuardedMemory& operator=(const GuardedMemory&) = delete;

  unsigned char* Begin() const { return m_begin; }
  std::size_t Size() const { return m_size; }

 private:
  unsigned char* m_pages;  // whole pages, the last one inaccessible
  std::size_t m_pagesSize;
  unsigned char* m_begin;
  std::size_t m_size;
};

}  // namespace bttest

#endif
