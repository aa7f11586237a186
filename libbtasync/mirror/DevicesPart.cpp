// The paired devices with their connections, and a pairing that is under way.

#include <algorithm>
#include <optional>
#include <utility>

#include "libbtasync/mirror/Keeper.h"
#include "libbtasync/mirror/Question.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

/// A connection that an event has reported.
struct ReportedConnection {
  Address address;
  ProfileConnection connection;
};

class PairedPart final : public MirrorPart {
 public:
  explicit PairedPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_PAIRED),
        m_list(
            *this, [](Service& service) { return service.PairedDevices(); },
            [this](std::vector<MWPTypeDevice> devices) { Take(std::move(devices)); }) {
    On<ConnectionChanged>([this](const ConnectionChanged& event) {
      Keep(event);
      Draw();
      m_list.Ask();
    });
    On<PairChanged>([this](const PairChanged& event) {
      if (event.status == BT_PAIR_PAIRED) {
        m_list.Ask();
      }
    });
    On<PairedDevicesDeleted>([this](const PairedDevicesDeleted&) { m_list.Ask(); });
    On<SupportedProfileFound>([this](const SupportedProfileFound&) { m_list.Ask(); });
  }

  bool NeedsReport() const override { return true; }  // which profiles are connected
  void Ask() override { m_list.Ask(); }
  void Reported() override {
    m_isReported = true;
    Draw();
    SetFreshness();
  }
  void Gone() override {
    m_list.Forget();
    m_isReported = false;
    m_devices.reset();
    m_connections.clear();
    SetFreshness();
  }
  void SetFreshness() override { Set(Now().paired.fresh, m_isReported && m_list.IsAnswered()); }

 private:
  void Keep(const ConnectionChanged& event) {
    const auto known = std::find_if(m_connections.begin(), m_connections.end(), [&](const auto& one) {
      return one.address == event.address && one.connection.profile == event.profile;
    });
    if (known != m_connections.end()) {
      known->connection.status = event.status;
    } else {
      m_connections.push_back({event.address, {event.profile, event.status}});
    }
  }
  void Take(std::vector<MWPTypeDevice> devices) {
    m_devices = std::move(devices);
    Draw();
  }
  /// Puts list and connections together, once both are known.
  void Draw() {
    if (!m_devices || !m_isReported) {
      return;
    }
    std::vector<PairedDevice> drawn;
    drawn.reserve(m_devices->size());
    for (const MWPTypeDevice& device : *m_devices) {
      PairedDevice entry{
          Address(device.strAddr), device.strName, device.eSupportType, device.eEnableProfileId, {}};
      for (const auto& reported : m_connections) {
        if (reported.address == entry.address) {
          entry.connections.push_back(reported.connection);
        }
      }
      drawn.push_back(std::move(entry));
    }
    Now().paired.devices = std::move(drawn);
    Note();
  }

  Question<std::vector<MWPTypeDevice>> m_list;
  bool m_isReported = false;
  std::optional<std::vector<MWPTypeDevice>> m_devices;  ///< the last list of the service that is there
  std::vector<ReportedConnection> m_connections;
};

class PairingPart final : public MirrorPart {
 public:
  explicit PairingPart(MirrorKeeper& keeper) : MirrorPart(keeper, PART_PAIRING) {
    On<PairRequested>([this](const PairRequested& event) {
      Here().underWay = event.address;
      Here().question = event;
      Here().failed.reset();
      Note();
    });
    On<PairChanged>([this](const PairChanged& event) {
      const bool isUnderWay = event.status == BT_PAIR_PAIRING;
      const bool isAnothers = Here().underWay && *Here().underWay != event.address;
      if (isUnderWay) {
        if (Here().question && isAnothers) {
          Here().question.reset();
        }
        Here().underWay = event.address;
        Here().failed.reset();
        Note();
      } else if (!isAnothers) {
        Clear();
        if (event.status == BT_PAIR_FAILED || event.status == BT_PAIR_PAIRED) {
          SetFailed(event.status == BT_PAIR_FAILED ? std::optional(event) : std::nullopt);
        }
      }
    });
  }

  bool NeedsReport() const override { return true; }
  void Ask() override {}
  void Reported() override { Set(Here().fresh, true); }
  void Gone() override {
    Clear();
    SetFailed(std::nullopt);
    Set(Here().fresh, false);
  }

 private:
  PairingState& Here() { return Now().pairing; }
  void SetFailed(std::optional<PairChanged> failed) {
    if (failed || Here().failed) {
      Here().failed = std::move(failed);
      Note();
    }
  }
  void Clear() {
    if (Here().underWay || Here().question) {
      Here().underWay.reset();
      Here().question.reset();
      Note();
    }
  }
};

}  // namespace

std::unique_ptr<MirrorPart> MakePairedPart(MirrorKeeper& keeper) {
  return std::make_unique<PairedPart>(keeper);
}
std::unique_ptr<MirrorPart> MakePairingPart(MirrorKeeper& keeper) {
  return std::make_unique<PairingPart>(keeper);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
