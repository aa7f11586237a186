#include "service/bluez/adapter/Power.h"

#include <utility>

#define MWP_LOG_SOURCE "service/bluez/adapter/Power"
#include <mwp/MWPLog.h>

#include "service/bluez/Refusal.h"

namespace btservice::bluez {
namespace {

constexpr const char* kPowered = "Powered";
constexpr Milliseconds kTimeToChange{5000};

}  // namespace

Power::Power(StackContext& context, CurrentAdapter& adapter)
    : m_context(context), m_adapter(adapter), m_late(context.scheduler) {
  m_adapter.onCome.Add([this] { OnCome(); });
  m_adapter.onGone.Add([this] { OnGone(); });
  m_adapter.onChanged.Add([this](const std::set<std::string>& names) {
    if (names.count(kPowered) == 0) {
      return;
    }
    if (m_target && m_adapter.Values().Flag(kPowered) == m_target) {
      Settle();
    } else {
      Update();  // somebody else's switch
    }
  });
}

PowerStatus Power::Status() const {
  if (!m_adapter.IsThere()) {
    return BT_POWER_OFF;
  }
  if (m_target) {
    return *m_target ? BT_POWER_TURNING_ON : BT_POWER_TURNING_OFF;
  }
  return m_adapter.Values().Flag(kPowered).value_or(false) ? BT_POWER_ON : BT_POWER_OFF;
}

void Power::Begin(bool on) { m_wanted = on; }

bool Power::Set(bool on) {
  if (!m_adapter.IsThere()) {
    return Refuse(on ? "SetPower(1)" : "SetPower(0)", "there is no Bluetooth adapter");
  }
  const PowerStatus status = Status();
  const bool isOrGoesOn = status == BT_POWER_ON || status == BT_POWER_TURNING_ON;
  if (on == isOrGoesOn) {
    return false;
  }
  m_wanted = on;
  Order(on);
  return true;
}

void Power::OnCome() {
  if (m_adapter.Values().Flag(kPowered) == m_wanted) {
    Update();
  } else {
    Order(m_wanted);
  }
}

void Power::OnGone() {
  m_target.reset();
  m_isSent = false;
  m_late.Stop();
  Update();
}

void Power::Order(bool on) {
  m_late.Stop();
  m_target = on;
  Update();
  Send();
}

void Power::Send() {
  if (m_isSent) {
    return;  // the answer to that comes first
  }
  const bool on = *m_target;
  m_isSent = m_adapter.Set(kPowered, g_variant_new_boolean(on ? TRUE : FALSE),
                           [this, on](const Reply& reply) { OnReply(on, reply); });
  if (!m_isSent) {
    Settle();
  }
}

void Power::OnReply(bool sent, const Reply& reply) {
  m_isSent = false;
  const bool hasFailed =
      HasFailed(sent ? "the adapter is not switched on" : "the adapter is not switched off", reply);
  if (m_target && *m_target != sent) {
    Send();
  } else if (m_target && hasFailed) {
    Settle();
  } else if (m_target) {
    m_late.Start(kTimeToChange, [this] { GiveUp(); });
  }
}

void Power::GiveUp() {
  MWP_LOG(MWP_LOG_WARNING, "BlueZ says that it has switched the adapter, which is as it was");
  Settle();
}

void Power::Settle() {
  m_late.Stop();
  m_target.reset();
  Update();
}

/// Reports what has become of it, and lets the rest of the stack follow.
void Power::Update() {
  const PowerStatus status = Status();
  const PowerStatus before = std::exchange(m_reported, status);
  if (status == before) {
    return;
  }
  const bool goesDown = before == BT_POWER_ON;
  if (goesDown && status == BT_POWER_OFF) {
    onDown();
  }
  Report();
  if (goesDown && status == BT_POWER_TURNING_OFF) {
    onDown();
  }
  if (status == BT_POWER_ON) {
    onOn();
  }
}

}  // namespace btservice::bluez
