#ifndef TESTS_FUZZ_FUZZCHECK_H
#define TESTS_FUZZ_FUZZCHECK_H

#include <cstdio>
#include <cstdlib>

namespace bttest {

/// Ends a fuzz target, which keeps the input, if something is not as it must be.
inline void Check(bool condition, const char* what) {
  if (!condition) {
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
  }
}

}  // namespace bttest

#endif
