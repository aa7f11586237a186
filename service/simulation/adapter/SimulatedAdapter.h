#ifndef SERVICE_SIMULATION_ADAPTER_SIMULATEDADAPTER_H
#define SERVICE_SIMULATION_ADAPTER_SIMULATEDADAPTER_H

#include <functional>
#include <string>

#include "service/simulation/adapter/PowerSwitch.h"
#include "service/simulation/adapter/Settings.h"
#include "service/simulation/devices/Scanner.h"
#include "service/stack/AdapterControl.h"

namespace btservice {

/// Passes the requests for the adapter on to the parts of the model that carry them out.
class SimulatedAdapter : public AdapterControl {
 public:
  SimulatedAdapter(PowerSwitch& power, Settings& settings, Scanner& scanner, DeviceTable& devices);

  bool SetPower(bool on) override { return m_power.Set(on); }
  PowerStatus Power() const override { return m_power.Status(); }
  void ReportStatus() override;

  bool SetCapability(Capability capability, int value) override;
  int GetCapability(Capability capability) const override { return m_settings.GetCapability(capability); }
  bool SetAttribute(Attribute attribute, const std::string& value) override;
  bool GetAttribute(Attribute attribute, std::string& value) const override;

  bool SetScanning(bool on) override { return m_power.IsOn() && m_scanner.Set(on); }
  void ForgetFoundDevices() override;
  bool EnterTestMode() override;

  /// The other parts are to report how they stand.
  Notifier<> onReportStatus;

 private:
  PowerSwitch& m_power;
  Settings& m_settings;
  Scanner& m_scanner;
  DeviceTable& m_devices;
};

}  // namespace btservice

#endif
