// Counts the allocations that all threads make in a measured request, by g_dbus_connection_call alone and
// through libbtasync, and prints both for each request. A program of its own, so that counting slows nothing
// else down.

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <limits>

#include "bench/harness/AsyncRequests.h"

extern "C" void* __libc_malloc(std::size_t);
extern "C" void* __libc_calloc(std::size_t, std::size_t);
extern "C" void* __libc_realloc(void*, std::size_t);

namespace {

std::atomic<long> g_allocations{0};

}  // namespace

// These take the place of the C library's for the whole process; operator new ends up here as well.
extern "C" void* malloc(std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(size);
}
extern "C" void* calloc(std::size_t count, std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(count, size);
}
extern "C" void* realloc(void* memory, std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(memory, size);
}

namespace {

constexpr int kRounds = 500;

template <typename Ask>
long AllocationsOf(Ask ask) {
  const long before = g_allocations;
  ask();
  return g_allocations - before;
}

}  // namespace

// Of each kind the round with the fewest counts: now and then one makes more, when GLib has to wait longer
// for the answer or puts its own books in order.
int main() {
  try {
    const OwnedObject<GDBusConnection> connection = NewConnection();
    btasync::Service service;
    WaitUntilPresent(service);
    for (const AsyncRequest& request : kAsyncRequests) {
      long bare = std::numeric_limits<long>::max();
      long throughLibrary = bare;
      for (int i = 0; i < kRounds; ++i) {
        bare = std::min(bare, AllocationsOf([&] { request.bare(connection.get()); }));
        throughLibrary = std::min(throughLibrary, AllocationsOf([&] { request.throughLibrary(service); }));
      }
      std::printf("%ld %ld\n", bare, throughLibrary);
    }
    return EXIT_SUCCESS;
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "bt_bench_async_allocations: %s\n", exception.what());
    return EXIT_FAILURE;
  }
}
