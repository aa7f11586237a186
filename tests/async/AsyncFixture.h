#ifndef TESTS_ASYNC_ASYNCFIXTURE_H
#define TESTS_ASYNC_ASYNCFIXTURE_H

#include <optional>
#include <utility>

#include <btasync/Service.h>

#include "support/BusDaemon.h"
#include "support/LogCapture.h"
#include "support/MainLoop.h"
#include "support/Recorder.h"

namespace bttest {

/// Runs the loop until a request is answered; throws if it is not.
template <typename T>
btasync::Answer<T> Wait(btasync::Request<T> request) {
  std::optional<btasync::Answer<T>> answer;
  btasync::Scope scope;
  std::move(request).Then(scope, [&](btasync::Answer<T> given) { answer.emplace(std::move(given)); });
  if (!RunUntil([&] { return answer.has_value(); })) {
    throw std::runtime_error("a request was not answered");
  }
  return *std::move(answer);
}

/// Runs the loop until the service is seen to be there, or not.
inline bool WaitFor(btasync::Service& service, btasync::Availability availability) {
  return RunUntil([&] { return service.Now() == availability; });
}

}  // namespace bttest

#endif
