#include "bench/counted/CountedPart.h"

extern "C" __attribute__((noinline, visibility("default"))) void bench_counted(void (*work)(void* data),
                                                                               void* data) {
  work(data);
  __asm__ volatile("");  // the call is none that takes the place of this one
}
