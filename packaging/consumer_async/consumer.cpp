// An application without a GLib header or loop of its own; run without a service, it must say so and end.

#include <btasync/PollLoop.h>
#include <btasync/Service.h>

#if __cplusplus >= 202002L && __has_include(<btasync/Coroutine.h>)
#include <btasync/Coroutine.h>
#endif

#include <poll.h>

#include <cstdio>
#include <vector>

using namespace btasync;

int main() {
  PollLoop loop;
  Service service(loop.Context());
  bool isEnded = false;
  bool isAsExpected = false;
  Scope scope;  // the last: gone before anything that the completion uses
  service.GetPowerStatus()
      .Within(std::chrono::seconds(20))
      .Then(scope, [&](const Answer<PowerStatus>& answer) {
        isEnded = true;
        isAsExpected = answer.Failed() &&
                       (answer.Why().reason == Reason::NoService || answer.Why().reason == Reason::NoBus);
        std::printf("%s\n", answer.Failed() ? ToText(answer.Why().reason) : "there is a service");
      });
  std::vector<pollfd> fds;
  while (!isEnded) {
    fds.clear();
    int timeoutMs = -1;
    loop.Prepare(fds, timeoutMs);
    poll(fds.data(), fds.size(), timeoutMs);
    loop.Dispatch(fds);
  }
  std::puts(isAsExpected ? "libbtasync is usable; there is no service here" : "unexpected answer");
  return isAsExpected ? 0 : 1;
}
