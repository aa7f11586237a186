#include "tests/conformance/Patience.h"

#include <cstdlib>

#include "support/MainLoop.h"

namespace conformance {
namespace {

constexpr std::chrono::milliseconds kBetweenQuestions{20};

double Factor() {
  const char* const factor = std::getenv("BTCONFORMANCE_PATIENCE");
  return factor != nullptr ? std::strtod(factor, nullptr) : 1;
}

}  // namespace

bool Eventually(const std::function<bool()>& condition) {
  const auto bound = std::chrono::duration<double, std::milli>(bttest::kBound) * Factor();
  const auto end = std::chrono::steady_clock::now() + bound;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) {
      return false;
    }
    // Events are taken in meanwhile; a question is a call of the service, and need not be asked more often.
    bttest::RunUntil([] { return false; }, kBetweenQuestions);
  }
  return true;
}

}  // namespace conformance
