// The smallest stack: an adapter that can be switched on and off, and nothing else. It is where a new one can
// begin, and it shows that the service needs no simulation.

#include <memory>
#include <string>
#include <utility>

#include "service/app/StackProvider.h"

namespace btservice {
namespace {

class PowerOnlyAdapter : public AdapterControl {
 public:
  explicit PowerOnlyAdapter(const StackObservers& observers) : m_observers(observers) {}

  bool SetPower(bool on) override {
    const PowerStatus wanted = on ? BT_POWER_ON : BT_POWER_OFF;
    if (m_status == wanted) {
      return false;
    }
    m_status = wanted;
    ReportStatus();
    return true;
  }
  PowerStatus Power() const override { return m_status; }
  void ReportStatus() override { m_observers.Report(PowerChanged{m_status}); }

 private:
  const StackObservers& m_observers;
  PowerStatus m_status = BT_POWER_OFF;
};

class PowerOnlyStack : public BluetoothStack {
 public:
  explicit PowerOnlyStack(SettingsData settings) : m_settings(std::move(settings)) {}

  AdapterControl& Adapter() override { return m_adapter; }

  void Start() override {
    if (m_settings.capabilities[BT_CAP_POWER_SWITCH] != 0) {
      m_adapter.SetPower(true);
    } else {
      m_adapter.ReportStatus();  // a service before this one may have been on
    }
  }
  void Stop() override { m_adapter.SetPower(false); }

 private:
  SettingsData m_settings;
  PowerOnlyAdapter m_adapter{Observers()};
};

class PowerOnlyProvider : public StackProvider {
 public:
  std::string Summary() const override { return "A Bluetooth service that can be switched on and off."; }
  ProvidedStack MakeStack(const ServiceParts&, const StackStart& start) override {
    return {std::make_unique<PowerOnlyStack>(start.settings)};
  }
};

}  // namespace

std::unique_ptr<StackProvider> MakeStackProvider() { return std::make_unique<PowerOnlyProvider>(); }

}  // namespace btservice
