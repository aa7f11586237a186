#include "tests/conformance/Patience.h"

#include <csignal>
#include <cstdlib>

#include "support/MainLoop.h"

namespace conformance {
namespace {

constexpr std::chrono::milliseconds kBetweenQuestions{20};

std::chrono::milliseconds Bound() {
  const char* const factor = std::getenv("BTCONFORMANCE_PATIENCE");
  const std::chrono::duration<double, std::milli> bound = bttest::kBound;
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      bound * (factor != nullptr ? std::strtod(factor, nullptr) : 1));
}

}  // namespace

bool Eventually(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + Bound();
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) {
      return false;
    }
    // Events are taken in meanwhile; a question is a call of the service, and need not be asked more often.
    bttest::RunUntil([] { return false; }, kBetweenQuestions);
  }
  return true;
}

std::optional<int> EndInGoodOrder(bttest::ChildProcess& process) {
  process.Signal(SIGTERM);
  return process.Wait(Bound());
}

}  // namespace conformance
