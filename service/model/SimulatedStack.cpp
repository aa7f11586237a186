#include "service/model/SimulatedStack.h"

namespace btservice {

SimulatedStack::SimulatedStack(Scheduler& scheduler, const World& world)
    : m_world(world),
      m_context{scheduler, m_world.delays, std::mt19937(m_world.seed), {}},
      m_power(m_context),
      m_settings(m_context, m_world.adapter, m_world.settings),
      m_devices(m_context, m_world),
      m_scanner(m_context, m_devices),
      m_pairing(m_context, m_power, m_settings, m_devices),
      m_connections(m_context, m_power, m_settings, m_devices),
      m_projection(m_context, m_power, m_devices, m_pairing, m_connections),
      m_adapter(m_power, m_settings, m_scanner, m_devices),
      m_deviceControl(m_context, m_power, m_devices, m_pairing, m_connections, m_projection) {
  m_adapter.onReportStatus.Add([this] { m_connections.ReportAll(); });
}

void SimulatedStack::Start() {
  if (m_settings.IsOn(BT_CAP_POWER_SWITCH)) {
    m_power.Set(true);
  }
}

}  // namespace btservice
