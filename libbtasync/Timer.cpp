#include <btasync/Timer.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "libbtasync/Backend.h"
#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {

Timer::Timer(Service& service) : Timer(service.End()) {}

Timer::Timer(detail::Backend& backend) : m_backend(&backend) { backend.Ref(); }

Timer::~Timer() {
  if (m_timer != nullptr) {
    m_backend->IsOwnThread("the end of a timer");  // there is no way to refuse that
    m_backend->StopTimer(m_timer);
  }
  m_backend->Unref();
}

void Timer::Start(std::chrono::milliseconds time, std::function<void()> callback) {
  if (!m_backend->IsOwnThread("a timer")) {
    return;
  }
  Stop();
  m_callback = std::move(callback);
  m_timer = m_backend->StartTimer(detail::ToTimeout(time), OnWake, this);
}

void Timer::Stop() {
  if (m_timer != nullptr && m_backend->IsOwnThread("stopping a timer")) {
    m_backend->StopTimer(std::exchange(m_timer, nullptr));
  }
}

void Timer::OnWake(void* data) {
  Timer& self = *static_cast<Timer*>(data);
  self.m_timer = nullptr;
  if (self.m_backend->IsOpen() && self.m_backend->IsOwnThread("a timer of a service that it has not made")) {
    const detail::BackendRef alive(*self.m_backend);
    const std::function<void()> callback = std::move(self.m_callback);
    detail::RunGuarded("the callback of a timer", callback);
  }
}

}  // namespace v0
}  // namespace btasync
