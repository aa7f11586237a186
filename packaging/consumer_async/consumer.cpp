// An application without a GLib header or loop of its own; run without a service, it must say so and end. As
// C++20 it waits in a coroutine.

#include <btasync/PollLoop.h>
#include <btasync/Service.h>

#if __cplusplus >= 202002L
#include <btasync/Coroutine.h>
#endif

#include <poll.h>

#include <cstdio>
#include <vector>

using namespace btasync;

namespace {

struct Result {
  bool isEnded = false;
  bool isAsExpected = false;

  void Take(const Answer<PowerStatus>& answer) {
    isEnded = true;
    isAsExpected =
        answer.Failed() && (answer.Why().reason == Reason::NoService || answer.Why().reason == Reason::NoBus);
    std::puts(answer.Failed() ? ToText(answer.Why().reason) : "there is a service");
  }
};

constexpr std::chrono::seconds kDeadline{20};

#if __cplusplus >= 202002L
Job AskForPower(Service& service, Result& result) {
  result.Take(co_await service.GetPowerStatus().Within(kDeadline));
}

void Ask(Service& service, Scope& scope, Result& result) { AskForPower(service, result).StartIn(scope); }
#else
void Ask(Service& service, Scope& scope, Result& result) {
  service.GetPowerStatus().Within(kDeadline).Then(
      scope, [&result](const Answer<PowerStatus>& answer) { result.Take(answer); });
}
#endif

}  // namespace

int main() {
  PollLoop loop;
  Service service(loop.Context());
  Result result;
  Scope scope;  // the last: gone before anything that the completion uses
  Ask(service, scope, result);
  std::vector<pollfd> fds;
  while (!result.isEnded) {
    fds.clear();
    int timeoutMs = -1;
    loop.Prepare(fds, timeoutMs);
    poll(fds.data(), fds.size(), timeoutMs);
    loop.Dispatch(fds);
  }
  std::puts(result.isAsExpected ? "libbtasync is usable; there is no service here" : "unexpected answer");
  return result.isAsExpected ? 0 : 1;
}
