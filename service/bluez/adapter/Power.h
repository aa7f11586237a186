#ifndef SERVICE_BLUEZ_ADAPTER_POWER_H
#define SERVICE_BLUEZ_ADAPTER_POWER_H

#include <optional>

#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/time/Notifier.h"
#include "service/time/Timer.h"

namespace btservice::bluez {

/// Power of the adapter. BlueZ knows on and off; the states on the way there are this service's own. Without
/// an adapter it is off. An adapter that comes is brought to what was asked for last.
class Power {
 public:
  Power(StackContext& context, CurrentAdapter& adapter);

  /// Refuses what is so already, or on its way to be so, and anything without an adapter. Each step is
  /// reported as PowerChanged. A switch in the middle of the other way turns round as soon as BlueZ has
  /// answered. What BlueZ refuses, or does not answer, is a warning in the log, and the adapter is reported
  /// as it is.
  bool Set(bool on);
  /// What an adapter is to be brought to, before anybody has asked for anything.
  void Begin(bool on);
  PowerStatus Status() const;
  bool IsOn() const { return Status() == BT_POWER_ON; }
  void Report() const { m_context.Report(PowerChanged{Status()}); }

  Notifier<> onOn;    ///< it is on, which was reported
  Notifier<> onDown;  ///< it is about to be reported off: let go of everything, and report that

 private:
  void OnCome();
  void OnGone();
  void Order(bool on);
  void Send();
  void OnReply(bool sent, const Reply& reply);
  void GiveUp();
  void Settle();
  void Update();

  StackContext& m_context;
  CurrentAdapter& m_adapter;
  Timer m_late;                  ///< BlueZ says that it is done, and has not said that anything changed
  bool m_wanted = false;         ///< what was asked for last
  std::optional<bool> m_target;  ///< what it is on its way to
  bool m_isSent = false;         ///< a command is under way
  PowerStatus m_reported = BT_POWER_OFF;
};

}  // namespace btservice::bluez

#endif
