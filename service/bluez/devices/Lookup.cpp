#include "service/bluez/devices/Lookup.h"

#include <utility>

#include "protocol/Address.h"
#include "service/bluez/BluezNames.h"
#include "service/bluez/Refusal.h"
#include "service/bluez/devices/DeviceNames.h"
#include "service/bluez/devices/DiscoveryFilter.h"
#include "service/stack/ReportedAddress.h"

namespace btservice::bluez {

Lookup::Lookup(StackContext& context, ObjectMirror& mirror, CurrentAdapter& adapter, Power& power,
               Search& search)
    : m_mirror(mirror), m_adapter(adapter), m_search(search), m_power(power), m_end(context.scheduler) {
  m_mirror.Add(*this);
  m_power.onDown.Add([this] { End(false); });
  // BlueZ carries out one search for each program. That of the user finds the device as well.
  m_search.onBegin.Add([this] { Stop(); });
  m_search.onEnd.Add([this] {
    if (IsUnderWay() && m_power.IsOn() && !m_isOwn) {
      Start();
    }
  });
}

bool Lookup::Begin(const std::string& address, Done done) {
  if (!IsBluetoothAddress(address) || IsUnderWay() || !m_power.IsOn()) {
    return false;
  }
  m_address = ReportedAddress(address);
  m_done = std::move(done);
  if (m_mirror.Find(DevicePath(m_adapter.Path(), m_address), kDeviceInterface) != nullptr) {
    m_end.Start(Milliseconds(0), [this] { End(true); });
    return true;
  }
  m_end.Start(Search::kLength, [this] { End(false); });
  if (m_search.IsIdle()) {
    Start();
  }
  return true;
}

void Lookup::OnAdded(const std::string& path, const std::string& interface) {
  if (IsUnderWay() && interface == kDeviceInterface && path == DevicePath(m_adapter.Path(), m_address)) {
    End(true);
  }
}

void Lookup::Start() {
  const unsigned started = ++m_started;
  m_isOwn = m_adapter.Call("SetDiscoveryFilter", NewDiscoveryFilter(m_address)) &&
            m_adapter.Call("StartDiscovery", nullptr,
                           [this, started](const Reply& reply) { OnStarted(started, reply); });
  if (!m_isOwn) {
    m_end.Start(Milliseconds(0), [this] { End(false); });
  }
}

void Lookup::OnStarted(unsigned started, const Reply& reply) {
  if (HasFailed("there is no search for a device by its address", reply) && started == m_started && m_isOwn) {
    m_isOwn = false;
    End(false);
  }
}

void Lookup::Stop() {
  if (std::exchange(m_isOwn, false) && m_power.IsOn()) {
    m_adapter.Call("StopDiscovery", nullptr);
  }
}

void Lookup::End(bool isThere) {
  Stop();
  m_end.Stop();
  if (const Done done = std::exchange(m_done, nullptr)) {
    done(isThere);
  }
}

}  // namespace btservice::bluez
