// Counts the allocations that the calling thread makes in a request by hand and in one through a facade, and
// prints both. A program of its own, so that counting slows nothing else down.

#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtPhone.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "ipc/BtProxy.h"

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

void AcceptCallByHand() {
  gint result = 0;
  GError* error = nullptr;
  com_zelk_linux_bluetooth_call_accept_call_sync(g_BtProxy, &result, nullptr, &error);
  g_clear_error(&error);
}

void AcceptCallThroughFacade() { MWPBtPhone().AcceptCall(); }

/// The fewest allocations that a request makes: now and then one makes more, when GLib has to wait longer for
/// the answer or puts its own books in order.
long AllocationsOf(void (*request)()) {
  long fewest = std::numeric_limits<long>::max();
  for (int i = 0; i < kRequests; ++i) {
    const long before = t_allocations;
    request();
    fewest = std::min(fewest, t_allocations - before);
  }
  return fewest;
}

}  // namespace

int main() {
  if (MWP_CreateBlueTooth() == 0) {
    return EXIT_FAILURE;
  }
  const long byHand = AllocationsOf(AcceptCallByHand);
  const long throughFacade = AllocationsOf(AcceptCallThroughFacade);
  std::printf("%ld %ld\n", byHand, throughFacade);
  return EXIT_SUCCESS;
}
