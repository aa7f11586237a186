#include "service/simulation/SimulatedStack.h"

#include "service/simulation/adapter/KeptAttributes.h"
#include "service/simulation/adapter/SimulatedAdapter.h"
#include "service/simulation/calls/SimulatedCalls.h"
#include "service/simulation/devices/SimulatedDevices.h"
#include "service/simulation/music/SimulatedMusic.h"

namespace btservice {

SimulatedStack::SimulatedStack(Scheduler& scheduler, const World& world)
    : m_world(world),
      m_context{scheduler, m_world.delays, std::mt19937(m_world.seed), Observers()},
      m_power(m_context),
      m_settings(m_context, m_world.adapter, m_world.settings),
      m_devices(m_context, m_world),
      m_scanner(m_context, m_devices),
      m_pairing(m_context, m_power, m_settings, m_devices),
      m_connections(m_context, m_power, m_settings, m_devices),
      m_projection(m_context, m_power, m_devices, m_pairing, m_connections),
      m_phoneStatus(m_context, m_connections),
      m_calls(m_context, m_settings, m_connections),
      m_callAudio(m_context, m_settings, m_connections, m_calls),
      m_player(m_context, m_connections, m_calls),
      m_browser(m_context, m_player, m_connections),
      m_messages(m_context, m_connections),
      m_adapter(MakeSimulatedAdapter(m_power, m_settings, m_scanner, m_devices, [this] { ReportAll(); })),
      m_deviceControl(
          MakeSimulatedDevices(m_context, m_power, m_devices, m_pairing, m_connections, m_projection)),
      m_phoneBook(m_context, m_world.startTime, m_settings, m_connections, m_calls),
      m_callControl(MakeSimulatedCalls(m_power, m_connections, m_calls, m_callAudio, m_phoneBook)),
      m_music(MakeSimulatedMusic(m_player, m_browser)),
      m_serial(m_context, m_power, m_devices, m_connections),
      m_outside(m_devices, m_connections, m_pairing, m_projection, m_phoneStatus, m_calls, m_player,
                m_messages, m_serial) {}

void SimulatedStack::ReportAll() const {
  m_pairing.ReportUnderWay();
  m_connections.ReportAll();
  if (m_connections.Active(BT_PROFILE_HFP) != nullptr) {
    m_phoneStatus.ReportAll();
    m_calls.ReportAll();
    m_callAudio.ReportAll();
  }
  if (m_player.InUse() != nullptr) {
    m_player.ReportAll();
  }
  m_phoneBook.ReportDownload();
}

void SimulatedStack::Start() {
  if (m_settings.IsOn(BT_CAP_POWER_SWITCH)) {
    m_power.Set(true);
  } else {
    m_power.Report();  // a stack before this one may have been on
  }
}

KeptState SimulatedStack::Kept() const {
  KeptState kept;
  for (const KeptAttribute& one : kKeptAttributes) {
    m_settings.GetAttribute(one.attribute, kept.attributes[one.attribute]);
  }
  for (const RemoteDevice* const device : m_devices.Paired()) {
    kept.paired.push_back({device->data.address, device->data.name});
  }
  return kept;
}

void SimulatedStack::Stop() {
  // As when the adapter goes down, but the power switch stays as it is: nobody has asked for it to go off.
  m_power.onDown();
}

}  // namespace btservice
