#include "service/simulation/adapter/SimulatedAdapter.h"

namespace btservice {

SimulatedAdapter::SimulatedAdapter(PowerSwitch& power, Settings& settings, Scanner& scanner,
                                   DeviceTable& devices)
    : m_power(power), m_settings(settings), m_scanner(scanner), m_devices(devices) {
  m_power.onDown.Add([this] { m_scanner.Set(false); });
}

void SimulatedAdapter::ReportStatus() {
  m_power.Report();
  m_scanner.Report();
  m_settings.ReportAll();
  onReportStatus();
}

bool SimulatedAdapter::SetCapability(Capability capability, int value) {
  return m_settings.SetCapability(capability, value);
}

bool SimulatedAdapter::SetAttribute(Attribute attribute, const std::string& value) {
  return m_settings.SetAttribute(attribute, value);
}

bool SimulatedAdapter::GetAttribute(Attribute attribute, std::string& value) const {
  return m_settings.GetAttribute(attribute, value);
}

void SimulatedAdapter::ForgetFoundDevices() {
  for (const auto& device : m_devices.All()) {
    device->found = false;
  }
}

bool SimulatedAdapter::EnterTestMode() {
  // A device under test has to be visible to the tester; beyond that, no difference can be seen from outside.
  return m_power.IsOn() && m_settings.SetCapability(BT_CAP_ENABLE_SCAN, 1);
}

}  // namespace btservice
