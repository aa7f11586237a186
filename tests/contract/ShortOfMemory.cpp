#include "contract/ShortOfMemory.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
std::atomic<std::size_t> smallestFailure{kNever};

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = size < smallestFailure ? std::malloc(size) : nullptr;
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace bttest {

ShortOfMemory::ShortOfMemory(std::size_t size) { smallestFailure = size; }
ShortOfMemory::~ShortOfMemory() { smallestFailure = kNever; }

}  // namespace bttest
