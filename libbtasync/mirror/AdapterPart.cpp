// The adapter, and the devices that a search finds.

#include <algorithm>
#include <optional>

#include "libbtasync/mirror/Keeper.h"
#include "libbtasync/mirror/Question.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

class AdapterPart final : public MirrorPart {
 public:
  explicit AdapterPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_ADAPTER),
        m_power(
            *this, [](Service& service) { return service.GetPowerStatus(); },
            [this](PowerStatus power) { Set(Here().power, power); }),
        m_name(
            *this, [](Service& service) { return service.GetAttribute(BT_ATTR_LOCAL_NAME); },
            [this](const std::string& name) { Set(Here().name, name); }),
        m_address(
            *this, [](Service& service) { return service.GetAttribute(BT_ATTR_LOCAL_ADDRESS); },
            [this](const std::string& address) { Set(Here().address, Address(address)); }),
        m_discoverable(
            *this, [](Service& service) { return service.GetCapability(BT_CAP_ENABLE_SCAN); },
            [this](bool on) { Set(Here().discoverable, on); }) {
    On<PowerChanged>([this](const PowerChanged& event) { Set(Here().power, event.status); });
    On<ScanChanged>(
        [this](const ScanChanged& event) { Set(Here().scanning, event.status == BT_SCAN_SCANNING); });
    On<AttributeChanged>([this](const AttributeChanged& event) {
      if (event.attribute == BT_ATTR_LOCAL_NAME) {
        Set(Here().name, event.value);
      }
    });
    On<CapabilityChanged>([this](const CapabilityChanged& event) {
      if (event.capability == BT_CAP_ENABLE_SCAN) {
        Set(Here().discoverable, event.on);
      }
    });
  }

  bool NeedsReport() const override { return true; }  // whether a search is running
  void Ask() override {
    m_power.Ask();
    m_name.Ask();
    m_address.Ask();
    m_discoverable.Ask();
  }
  void Reported() override {
    m_isReported = true;
    SetFreshness();
  }
  void Gone() override {
    m_power.Forget();
    m_name.Forget();
    m_address.Forget();
    m_discoverable.Forget();
    m_isReported = false;
    Set(Here().scanning, false);
    SetFreshness();
  }
  void SetFreshness() override {
    Set(Here().fresh, m_isReported && m_power.IsAnswered() && m_name.IsAnswered() && m_address.IsAnswered() &&
                          m_discoverable.IsAnswered());
  }

 private:
  AdapterState& Here() { return Now().adapter; }

  bool m_isReported = false;
  Question<PowerStatus> m_power;
  Question<std::string> m_name;
  Question<std::string> m_address;
  Question<bool> m_discoverable;
};

class FoundPart final : public MirrorPart {
 public:
  explicit FoundPart(MirrorKeeper& keeper) : MirrorPart(keeper, PART_FOUND) {
    On<ScanChanged>([this](const ScanChanged& event) {
      const bool isScanning = event.status == BT_SCAN_SCANNING;
      if (isScanning && !m_isScanning.value_or(false)) {
        Clear();
      }
      m_isScanning = isScanning;
    });
    On<DeviceFound>([this](const DeviceFound& event) {
      if (!m_isScanning) {
        m_isScanning = true;  // the search began before this part
      }
      std::vector<DeviceFound>& devices = Now().found.devices;
      const auto known = Find(event.address);
      if (known == devices.end()) {
        devices.push_back(event);
      } else {
        *known = event;
      }
      Note();
    });
    On<PairChanged>([this](const PairChanged& event) {
      const auto known = Find(event.address);
      if (event.status == BT_PAIR_PAIRED && known != Now().found.devices.end()) {
        Now().found.devices.erase(known);
        Note();
      }
    });
  }

  void Ask() override {
    // Nobody knows what the service has found, and it forgets it when it ends.
    Clear();
    Set(Now().found.fresh, true);
  }
  void Gone() override {
    m_isScanning.reset();
    Set(Now().found.fresh, false);
  }

 private:
  std::vector<DeviceFound>::iterator Find(const Address& address) {
    std::vector<DeviceFound>& devices = Now().found.devices;
    return std::find_if(devices.begin(), devices.end(),
                        [&](const DeviceFound& device) { return device.address == address; });
  }
  void Clear() {
    if (!Now().found.devices.empty()) {
      Now().found.devices.clear();
      Note();
    }
  }

  /// Whether a search runs; none before the service has said anything of it. One that runs is reported again
  /// whenever an application asks for a report: that is not the beginning of another one.
  std::optional<bool> m_isScanning;
};

}  // namespace

std::unique_ptr<MirrorPart> MakeAdapterPart(MirrorKeeper& keeper) {
  return std::make_unique<AdapterPart>(keeper);
}
std::unique_ptr<MirrorPart> MakeFoundPart(MirrorKeeper& keeper) {
  return std::make_unique<FoundPart>(keeper);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
