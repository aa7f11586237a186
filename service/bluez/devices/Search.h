#ifndef SERVICE_BLUEZ_DEVICES_SEARCH_H
#define SERVICE_BLUEZ_DEVICES_SEARCH_H

#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/bluez/adapter/Power.h"
#include "service/bluez/devices/FoundDevices.h"
#include "service/time/Notifier.h"
#include "service/time/Timer.h"

namespace btservice::bluez {

/// The search for devices of the classic radio. BlueZ searches until it is stopped; this ends by itself.
class Search {
 public:
  /// As long as an inquiry takes, which is what finds devices.
  static constexpr Milliseconds kLength{10240};

  Search(StackContext& context, CurrentAdapter& adapter, Power& power, FoundDevices& found);

  /// Begins or ends a search: ScanChanged when BlueZ has begun or ended it, and DeviceFound. If BlueZ
  /// refuses, a line in the log says why, and it is reported as idle. Refuses what is so already, and any
  /// search while the adapter is not on.
  bool Set(bool on);
  /// Reports whether a search runs, for whoever comes late.
  void Report() const;
  bool IsIdle() const { return m_state == State::IDLE; }

  Notifier<> onBegin;  ///< BlueZ is about to be asked to search
  Notifier<> onEnd;    ///< it no longer searches, which was reported

 private:
  enum class State { IDLE, STARTING, RUNNING, STOPPING };

  void Start();
  void Stop();
  void OnStarted(const Reply& reply);
  void End();

  StackContext& m_context;
  CurrentAdapter& m_adapter;
  Power& m_power;
  FoundDevices& m_found;
  Timer m_end;
  State m_state = State::IDLE;
};

}  // namespace btservice::bluez

#endif
