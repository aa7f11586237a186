#include <btasync/Service.h>

#include "libbtasync/BusBackend.h"
#include "libbtasync/Log.h"
#include "protocol/Address.h"

namespace btasync {
inline namespace v0 {

bool Address::IsValid() const { return IsBluetoothAddress(m_text); }

bool operator==(const Address& one, const Address& other) {
  return g_ascii_strcasecmp(one.m_text.c_str(), other.m_text.c_str()) == 0;
}

const char* ToText(Availability availability) {
  switch (availability) {
    case Availability::Unknown:
      return "unknown";
    case Availability::NoBus:
      return "no bus";
    case Availability::Absent:
      return "absent";
    case Availability::Present:
      return "present";
  }
  return "unknown";
}

Service::Service(GMainContext* context) : m_backend(new detail::BusBackend(context)) {}

Service::Service(detail::Backend& backend) : m_backend(&backend) {}

Service::~Service() {
  if (!m_backend->IsOwnThread("the end of a service object")) {
    m_backend->CloseByLoop();  // whose thread may be in it
    return;
  }
  m_backend->Close();
  m_backend->Unref();
}

Availability Service::Now() const {
  return m_backend->IsOwnThread("the availability of the service") ? m_backend->Now() : Availability::Unknown;
}

void Service::SetDeadline(std::chrono::milliseconds time) {
  if (m_backend->IsOwnThread("another deadline")) {
    m_backend->SetDeadline(time);
  }
}

bool Service::MaySubscribe(const Scope& scope) const {
  return m_backend->IsOwnThread("events") && scope.MayHold();
}

void Service::Subscribe(const detail::EventKind& kind, Scope& scope, detail::Subscription& subscription) {
  scope.Hold(subscription);
  m_backend->Subscribe(kind, subscription);
}

}  // namespace v0
}  // namespace btasync
