#ifndef SERVICE_BLUEZ_DEVICES_FOUNDDEVICES_H
#define SERVICE_BLUEZ_DEVICES_FOUNDDEVICES_H

#include <list>
#include <optional>
#include <set>
#include <string>

#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/bluez/bus/ObjectMirror.h"
#include "service/bluez/devices/DeviceNames.h"
#include "service/stack/StackTypes.h"

namespace btservice::bluez {

/// The devices that searches have found: the service's own list, since BlueZ forgets a device half a minute
/// after it was heard of last. It is forgotten here when somebody says so; a daemon or an adapter that goes
/// takes nothing with it.
class FoundDevices : private MirrorListener {
 public:
  /// How many are remembered: beyond that, the one that was found first is forgotten.
  static constexpr std::size_t kMostDevices = 1000;

  FoundDevices(StackContext& context, ObjectMirror& mirror, CurrentAdapter& adapter);

  /// While a search runs, each device of the adapter that is heard of is reported as DeviceFound, once in
  /// that search, and again when its name becomes known.
  void BeginSearch();
  void EndSearch() { m_isSearching = false; }

  /// Nothing if it was not found. Upper and lower case are the same.
  std::optional<DeviceInfo> Find(const std::string& address) const;
  /// Forgets one device, or all, and lets BlueZ forget it as well, unless it is paired or connected.
  void Forget(const std::string& address);
  void ForgetAll();

 private:
  struct Found {
    std::string address;
    std::string name;  ///< empty while it is not known
    bool isReported;   ///< in the search that runs, or ran last
  };

  void OnAdded(const std::string& path, const std::string& interface) override;
  void OnChanged(const std::string& path, const std::string& interface,
                 const std::set<std::string>& names) override;
  /// The device was heard of.
  void Take(const DeviceNames& device);
  /// It may have another name.
  void TakeName(const DeviceNames& device);
  void Report(Found& found);
  std::list<Found>::iterator Place(const std::string& address);
  /// False if it takes no more orders. One that it has forgotten, or has to keep, is no order.
  bool LetBluezForget(const std::string& address);

  StackContext& m_context;
  ObjectMirror& m_mirror;
  CurrentAdapter& m_adapter;
  bool m_isSearching = false;
  std::list<Found> m_found;  ///< in the order in which they were found
};

}  // namespace btservice::bluez

#endif
