// Makes one of the measured requests a number of times: bt_bench_async bare|library NAME TIMES. Its
// instructions are counted from outside, those of all its threads.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

#include "bench/harness/AsyncRequests.h"

namespace {

const AsyncRequest& Find(const std::string& name) {
  for (const AsyncRequest& request : kAsyncRequests) {
    if (request.name == name) {
      return request;
    }
  }
  throw std::runtime_error("there is no request " + name);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: bt_bench_async bare|library NAME TIMES\n", stderr);
    return EXIT_FAILURE;
  }
  try {
    const AsyncRequest& request = Find(argv[2]);
    const int times = std::atoi(argv[3]);
    // Both ways have both: what they need by their mere existence is in both.
    const OwnedObject<GDBusConnection> connection = NewConnection();
    btasync::Service service;
    WaitUntilPresent(service);
    const bool isBare = std::string(argv[1]) == "bare";
    for (int i = 0; i < times; ++i) {
      if (isBare) {
        request.bare(connection.get());
      } else {
        request.throughLibrary(service);
      }
    }
    return EXIT_SUCCESS;
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "bt_bench_async: %s\n", exception.what());
    return EXIT_FAILURE;
  }
}
