#include "fuzz/GuardedMemory.h"

#include <new>

#include <sys/mman.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define BTTEST_HAS_ASAN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define BTTEST_HAS_ASAN
#endif
#endif
#ifdef BTTEST_HAS_ASAN
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#endif

namespace bttest {

GuardedMemory::GuardedMemory(std::size_t size) : m_size(size) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t usable = (size + page - 1) / page * page;
  m_pagesSize = page + usable + page;
  void* const pages = mmap(nullptr, m_pagesSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (pages == MAP_FAILED) {
    throw std::bad_alloc();
  }
  m_pages = static_cast<unsigned char*>(pages);
  if (mprotect(m_pages + page, usable, PROT_READ | PROT_WRITE) != 0) {
    munmap(m_pages, m_pagesSize);
    throw std::bad_alloc();
  }
  m_begin = m_pages + page + usable - size;
  ASAN_POISON_MEMORY_REGION(m_pages + page, usable - size);
}

GuardedMemory::~GuardedMemory() {
  ASAN_UNPOISON_MEMORY_REGION(m_pages, m_pagesSize);
  munmap(m_pages, m_pagesSize);
}

}  // namespace bttest
