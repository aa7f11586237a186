#ifndef SERVICE_BLUEZ_DEVICES_LOOKUP_H
#define SERVICE_BLUEZ_DEVICES_LOOKUP_H

#include <functional>
#include <string>

#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/bluez/adapter/Power.h"
#include "service/bluez/bus/ObjectMirror.h"
#include "service/bluez/devices/Search.h"
#include "service/time/Timer.h"

namespace btservice::bluez {

/// Has BlueZ find a device by its address: one that was found before and that it has forgotten, or one that
/// never was. Without an object of BlueZ's a device can be neither paired nor connected. Nothing is reported;
/// one device is looked for at a time. Used on the thread of the main loop.
class Lookup : private MirrorListener {
 public:
  /// What came of it: whether BlueZ has an object for the device now. May begin another.
  using Done = std::function<void(bool isThere)>;

  Lookup(StackContext& context, ObjectMirror& mirror, CurrentAdapter& adapter, Power& power, Search& search);

  /// Looks for a device, for as long as a search takes at most; one that BlueZ has is there at once. done
  /// hears of the end, once and never inside this: also if the adapter goes down or BlueZ refuses. False, and
  /// nothing is done, if that is no address, another one is looked for, or the adapter is not on.
  bool Begin(const std::string& address, Done done);
  bool IsUnderWay() const { return static_cast<bool>(m_done); }

 private:
  void OnAdded(const std::string& path, const std::string& interface) override;
  void Start();
  void OnStarted(unsigned started, const Reply& reply);
  /// Stops what was started here, if anything was.
  void Stop();
  void End(bool isThere);

  ObjectMirror& m_mirror;
  CurrentAdapter& m_adapter;
  Search& m_search;
  Power& m_power;
  Timer m_end;
  std::string m_address;
  Done m_done;             ///< null while nothing is looked for
  bool m_isOwn = false;    ///< BlueZ was asked to search from here, and not by a search of the user's
  unsigned m_started = 0;  ///< counts these, of which an earlier one may be answered late
};

}  // namespace btservice::bluez

#endif
