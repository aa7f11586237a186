#include "service/simulation/adapter/SimulatedAdapter.h"

#include <utility>

#include "service/simulation/adapter/PowerSwitch.h"
#include "service/simulation/adapter/Settings.h"
#include "service/simulation/devices/Scanner.h"

namespace btservice {
namespace {

class SimulatedAdapter final : public AdapterControl {
 public:
  SimulatedAdapter(PowerSwitch& power, Settings& settings, Scanner& scanner, DeviceTable& devices,
                   std::function<void()> reportOthers)
      : m_power(power),
        m_settings(settings),
        m_scanner(scanner),
        m_devices(devices),
        m_reportOthers(std::move(reportOthers)) {
    m_power.onDown.Add([this] { m_scanner.Set(false); });
  }

  bool SetPower(bool on) override { return m_power.Set(on); }
  PowerStatus Power() const override { return m_power.Status(); }
  void ReportStatus() override {
    m_power.Report();
    m_scanner.Report();
    m_settings.ReportAll();
    m_reportOthers();
  }

  bool SetCapability(Capability capability, int value) override {
    return m_settings.SetCapability(capability, value);
  }
  int GetCapability(Capability capability) const override { return m_settings.GetCapability(capability); }
  bool SetAttribute(Attribute attribute, const std::string& value) override {
    return m_settings.SetAttribute(attribute, value);
  }
  bool GetAttribute(Attribute attribute, std::string& value) const override {
    return m_settings.GetAttribute(attribute, value);
  }

  bool SetScanning(bool on) override { return m_power.IsOn() && m_scanner.Set(on); }
  void ForgetFoundDevices() override {
    for (const auto& device : m_devices.All()) {
      device->found = false;
    }
  }
  bool EnterTestMode() override {
    // A device under test has to be visible to the tester; beyond that, no difference can be seen from
    // outside.
    return m_power.IsOn() && m_settings.SetCapability(BT_CAP_ENABLE_SCAN, 1);
  }

 private:
  PowerSwitch& m_power;
  Settings& m_settings;
  Scanner& m_scanner;
  DeviceTable& m_devices;
  const std::function<void()> m_reportOthers;
};

}  // namespace

std::unique_ptr<AdapterControl> MakeSimulatedAdapter(PowerSwitch& power, Settings& settings, Scanner& scanner,
                                                     DeviceTable& devices,
                                                     std::function<void()> reportOthers) {
  return std::make_unique<SimulatedAdapter>(power, settings, scanner, devices, std::move(reportOthers));
}

}  // namespace btservice
