#include "bench/counted/CountedPart.h"

#include <cstdio>
#include <exception>

extern "C" __attribute__((noinline, visibility("default"))) void bench_counted(void (*work)(void* data),
                                                                               void* data) {
  work(data);
  __asm__ volatile("");  // the call is none that takes the place of this one
}

int RunCounted(const char* program, void (*work)()) {
  try {
    work();
    return 0;
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "%s: %s\n", program, exception.what());
    return 1;
  }
}
