// Counts the allocations that the calling thread makes in a request by hand and in one through a facade, and
// prints both. A program of its own, so that counting slows nothing else down.

#include <bluetooth/MWPBluetooth.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "bench/harness/MeasuredRequests.h"

extern "C" void* __libc_malloc(std::size_t);
extern "C" void* __libc_calloc(std::size_t, std::size_t);
extern "C" void* __libc_realloc(void*, std::size_t);

namespace {

__attribute__((tls_model("initial-exec"))) thread_local long t_allocations = 0;

}  // namespace

// These take the place of the C library's for the whole process; operator new ends up here as well.
extern "C" void* malloc(std::size_t size) {
  ++t_allocations;
  return __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) {
  ++t_allocations;
  return __libc_calloc(count, size);
}
extern "C" void* realloc(void* memory, std::size_t size) {
  ++t_allocations;
  return __libc_realloc(memory, size);
}

namespace {

constexpr int kRequests = 1000;

long AllocationsOf(void (*request)()) {
  const long before = t_allocations;
  request();
  return t_allocations - before;
}

}  // namespace

// Of each kind the request with the fewest counts: now and then one makes more, when GLib has to wait longer
// for the answer or puts its own books in order.
int main() {
  if (MWP_CreateBlueTooth() == 0) {
    return EXIT_FAILURE;
  }
  long byHand = std::numeric_limits<long>::max();
  long throughFacade = byHand;
  for (int i = 0; i < kRequests; ++i) {
    byHand = std::min(byHand, AllocationsOf(AcceptCallByHand));
    throughFacade = std::min(throughFacade, AllocationsOf(AcceptCallThroughFacade));
  }
  std::printf("%ld %ld\n", byHand, throughFacade);
  return EXIT_SUCCESS;
}
