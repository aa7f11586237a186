#include "service/bluez/devices/Search.h"

#include "service/bluez/Refusal.h"
#include "service/bluez/devices/DiscoveryFilter.h"

namespace btservice::bluez {
namespace {

constexpr const char* kDiscovering = "Discovering";

}  // namespace

Search::Search(StackContext& context, CurrentAdapter& adapter, Power& power, FoundDevices& found)
    : m_context(context), m_adapter(adapter), m_power(power), m_found(found), m_end(context.scheduler) {
  m_power.onDown.Add([this] { End(); });
  m_adapter.onChanged.Add([this](const std::set<std::string>& names) {
    if (m_state == State::RUNNING && names.count(kDiscovering) != 0 &&
        !m_adapter.Values().Flag(kDiscovering).value_or(false)) {
      End();  // BlueZ has, by itself
    }
  });
}

bool Search::Set(bool on) {
  const bool isOrGoesOn = m_state == State::STARTING || m_state == State::RUNNING;
  if (!m_power.IsOn() || on == isOrGoesOn || (on && m_state != State::IDLE)) {
    return false;
  }
  if (on) {
    Start();
    return m_state == State::STARTING;
  }
  Stop();
  return true;
}

void Search::Report() const {
  m_context.Report(
      ScanChanged{m_state == State::RUNNING || m_state == State::STOPPING ? BT_SCAN_SCANNING : BT_SCAN_IDLE});
}

void Search::Start() {
  onBegin();
  const bool isOrdered =
      m_adapter.Call("SetDiscoveryFilter", NewDiscoveryFilter("")) &&
      m_adapter.Call("StartDiscovery", nullptr, [this](const Reply& reply) { OnStarted(reply); });
  if (isOrdered) {
    m_state = State::STARTING;
    // Devices may be reported before BlueZ has answered.
    m_found.BeginSearch();
  }
}

void Search::OnStarted(const Reply& reply) {
  const bool hasFailed = HasFailed("there is no search for devices", reply);
  if (m_state != State::STARTING) {
    return;  // ended meanwhile
  }
  if (hasFailed) {
    End();
    return;
  }
  m_state = State::RUNNING;
  Report();
  m_end.Start(kLength, [this] { Stop(); });
}

void Search::Stop() {
  m_end.Stop();
  m_found.EndSearch();
  if (m_adapter.Call("StopDiscovery", nullptr, [this](const Reply& reply) {
        HasFailed("the search for devices is not stopped", reply);
        if (m_state == State::STOPPING) {
          End();
        }
      })) {
    m_state = State::STOPPING;
  } else {
    End();
  }
}

void Search::End() {
  m_end.Stop();
  m_found.EndSearch();
  if (m_state != State::IDLE) {
    m_state = State::IDLE;
    Report();
    onEnd();
  }
}

}  // namespace btservice::bluez
