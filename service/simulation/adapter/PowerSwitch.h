#ifndef SERVICE_SIMULATION_ADAPTER_POWERSWITCH_H
#define SERVICE_SIMULATION_ADAPTER_POWERSWITCH_H

#include "service/simulation/ModelContext.h"
#include "service/time/Timer.h"

namespace btservice {

/// Power of the adapter, with the states on the way.
class PowerSwitch {
 public:
  explicit PowerSwitch(ModelContext& context);

  /// Refuses what is so already, or on its way to be so. Both ways take a while (Delays); each step is
  /// reported as PowerChanged. A switch in the middle of the other way turns round at once.
  bool Set(bool on);
  PowerStatus Status() const { return m_status; }
  bool IsOn() const { return m_status == BT_POWER_ON; }
  void Report() const { m_context.Report(PowerChanged{m_status}); }

  Notifier<> onOn;  ///< the adapter has come up, after it was reported
  Notifier<>
      onDown;  ///< the adapter is about to go down: let go of everything, and report that before returning

 private:
  void Enter(PowerStatus status);

  ModelContext& m_context;
  Timer m_timer;
  PowerStatus m_status = BT_POWER_OFF;
};

}  // namespace btservice

#endif
