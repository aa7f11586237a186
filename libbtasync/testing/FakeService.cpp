#include <btasync/testing/FakeService.h>

#include <utility>

#include "libbtasync/testing/FakeBackend.h"

namespace btasync {
inline namespace v0 {

FakeService::FakeService(Availability availability) : Service(*new detail::FakeBackend(availability)) {}

detail::FakeBackend& FakeService::Fake() const { return static_cast<detail::FakeBackend&>(End()); }

void FakeService::Advance(std::chrono::milliseconds time) { Fake().Advance(time); }

void FakeService::SetAvailability(Availability availability) { Fake().ChangeAvailability(availability); }

void FakeService::Hang() { Fake().Hang(); }

void FakeService::GoOn() { Fake().GoOn(); }

const std::vector<std::string>& FakeService::Requests() const { return Fake().Requests(); }

std::vector<std::string> FakeService::UnansweredRequests() const { return Fake().UnansweredRequests(); }

void FakeService::ForgetRequests() { Fake().ForgetRequests(); }

detail::FakeRule& FakeService::AddRule(std::string name) { return Fake().AddRule(std::move(name)); }

void FakeService::EndOldest(const std::string& name, const std::function<void(detail::PendingCall&)>& end) {
  Fake().EndOldest(name, end);
}

void FakeService::EmitLater(const detail::EventKind& kind, std::shared_ptr<const void> event) {
  Fake().EmitLater(std::chrono::milliseconds(0), kind, std::move(event));
}

bool FakeService::IsAwaited(const detail::EventKind& kind) const { return Fake().IsAwaited(kind); }

}  // namespace v0
}  // namespace btasync
