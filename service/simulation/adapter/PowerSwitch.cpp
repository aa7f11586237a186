#include "service/simulation/adapter/PowerSwitch.h"

namespace btservice {

PowerSwitch::PowerSwitch(ModelContext& context) : m_context(context), m_timer(context.scheduler) {}

bool PowerSwitch::Set(bool on) {
  const bool isOrGoesOn = m_status == BT_POWER_ON || m_status == BT_POWER_TURNING_ON;
  if (on == isOrGoesOn) {
    return false;
  }
  if (on) {
    Enter(BT_POWER_TURNING_ON);
    m_timer.Start(m_context.delays.powerOn, [this] {
      Enter(BT_POWER_ON);
      onOn();
    });
  } else {
    Enter(BT_POWER_TURNING_OFF);
    onDown();
    m_timer.Start(m_context.delays.powerOff, [this] { Enter(BT_POWER_OFF); });
  }
  return true;
}

void PowerSwitch::Enter(PowerStatus status) {
  m_status = status;
  Report();
}

}  // namespace btservice
