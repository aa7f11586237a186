#include "service/bluez/adapter/BluezAdapter.h"

#include "service/bluez/adapter/Attributes.h"
#include "service/bluez/adapter/Capabilities.h"
#include "service/bluez/adapter/Power.h"
#include "service/bluez/devices/FoundDevices.h"
#include "service/bluez/devices/Search.h"

namespace btservice::bluez {
namespace {

class BluezAdapter final : public AdapterControl {
 public:
  BluezAdapter(bluez::Power& power, Attributes& attributes, Capabilities& capabilities, Search& search,
               FoundDevices& found)
      : m_power(power),
        m_attributes(attributes),
        m_capabilities(capabilities),
        m_search(search),
        m_found(found) {}

  bool SetPower(bool on) override { return m_power.Set(on); }
  PowerStatus Power() const override { return m_power.Status(); }
  void ReportStatus() override {
    m_power.Report();
    m_search.Report();
    m_capabilities.ReportAll();
    m_attributes.ReportAll();
  }

  bool SetCapability(Capability capability, int value) override {
    return m_capabilities.Set(capability, value);
  }
  int GetCapability(Capability capability) const override { return m_capabilities.Get(capability); }
  bool SetAttribute(Attribute attribute, const std::string& value) override {
    return m_attributes.Set(attribute, value);
  }
  bool GetAttribute(Attribute attribute, std::string& value) const override {
    return m_attributes.Get(attribute, value);
  }
  bool SetScanning(bool on) override { return m_search.Set(on); }
  void ForgetFoundDevices() override { m_found.ForgetAll(); }
  bool EnterTestMode() override {
    // A device under test has to be visible to the tester; BlueZ has no more than that.
    return m_power.IsOn() && m_capabilities.Set(BT_CAP_ENABLE_SCAN, 1);
  }

 private:
  bluez::Power& m_power;
  Attributes& m_attributes;
  Capabilities& m_capabilities;
  Search& m_search;
  FoundDevices& m_found;
};

}  // namespace

std::unique_ptr<AdapterControl> MakeBluezAdapter(Power& power, Attributes& attributes,
                                                 Capabilities& capabilities, Search& search,
                                                 FoundDevices& found) {
  return std::make_unique<BluezAdapter>(power, attributes, capabilities, search, found);
}

}  // namespace btservice::bluez
