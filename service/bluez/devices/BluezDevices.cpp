#include "service/bluez/devices/BluezDevices.h"

#include "service/bluez/Refusal.h"
#include "service/bluez/devices/FoundDevices.h"

namespace btservice::bluez {
namespace {

class BluezDevices final : public DeviceControl {
 public:
  explicit BluezDevices(FoundDevices& found) : m_found(found) {}

  std::optional<DeviceInfo> FindDevice(const std::string& address) const override {
    return m_found.Find(address);
  }
  void RemoveDevice(const std::string& address) override { m_found.Forget(address); }
  bool SetOobLinkKey(const std::string&, const Bytes&) override {
    return Refuse("SetDeviceOOBLinkKey", "BlueZ takes no link key that was exchanged by other means");
  }

 private:
  FoundDevices& m_found;
};

}  // namespace

std::unique_ptr<DeviceControl> MakeBluezDevices(FoundDevices& found) {
  return std::make_unique<BluezDevices>(found);
}

}  // namespace btservice::bluez
