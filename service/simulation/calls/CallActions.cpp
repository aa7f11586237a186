// What can be done with the calls: what phones do on the hands-free command AT+CHLD, the numbering of which
// the actions have.

#include "service/simulation/calls/CallTable.h"

namespace btservice {

/// Whether phones take the action on, as the calls stand. While an outgoing call is not answered, nothing can
/// become active beside it. A waiting call is always the last: no fourth can come, and it takes the place of
/// the held one in what is done next.
std::set<CallAction> CallTable::PossibleActions() const {
  std::set<CallAction> possible;
  for (const CallAction action : kCallActions) {
    if (IsPossible(action)) {
      possible.insert(action);
    }
  }
  return possible;
}

bool CallTable::IsPossible(CallAction action) const {
  const bool active = Has(BT_CALL_ACTIVE);
  const bool held = Has(BT_CALL_HELD);
  const bool waiting = Has(BT_CALL_WAITING);
  const bool outgoing = Has(BT_CALL_DIALING) || Has(BT_CALL_ALERTING);
  switch (action) {
    case BT_CALL_RELEASE_HELD:
      return held || waiting;
    case BT_CALL_RELEASE_ACTIVE:
      return !outgoing && (active || held || waiting);
    case BT_CALL_HOLD_ACTIVE:
      // With all three there is nowhere to put the active one.
      return !outgoing && (active || held || waiting) && !(active && held && waiting);
    case BT_CALL_CONFERENCE:
    case BT_CALL_TRANSFER:
      return active && held;
  }
  return false;
}

bool CallTable::Perform(CallAction action, int callId) {
  const bool done = callId != 0 ? PerformOn(action, callId) : PerformOnAll(action);
  if (done) {
    Commit();
  }
  return done;
}

bool CallTable::PerformOn(CallAction action, int callId) {
  Call* const call = FindById(callId);
  if (call == nullptr) {
    return false;
  }
  if (action == BT_CALL_RELEASE_ACTIVE) {
    if (call->status != BT_CALL_ACTIVE) {
      return false;
    }
    End(*call);  // and nothing else: a held call stays on hold
    return true;
  }
  if (action == BT_CALL_HOLD_ACTIVE && call->multiparty && call->status == BT_CALL_ACTIVE &&
      !Has(BT_CALL_HELD)) {
    // A word in private with one member of the conference.
    SetAll(BT_CALL_ACTIVE, BT_CALL_HELD);
    call->status = BT_CALL_ACTIVE;
    call->multiparty = false;
    SetMultiparty();
    return true;
  }
  return PerformOnAll(action);
}

bool CallTable::PerformOnAll(CallAction action) {
  if (!IsPossible(action)) {
    return false;
  }
  switch (action) {
    case BT_CALL_RELEASE_HELD:
      ReleaseHeld();
      break;
    case BT_CALL_RELEASE_ACTIVE:
      EndAll(BT_CALL_ACTIVE);
      TakeUpOther();
      break;
    case BT_CALL_HOLD_ACTIVE:
      HoldActive();
      break;
    case BT_CALL_CONFERENCE:
      Join();
      break;
    case BT_CALL_TRANSFER:
      EndAll(BT_CALL_ACTIVE);
      EndAll(BT_CALL_HELD);
      break;
  }
  return true;
}

void CallTable::ReleaseHeld() {
  if (Call* const waiting = Find(BT_CALL_WAITING)) {
    waiting->rejectedHere = true;
    End(*waiting);
  } else {
    EndAll(BT_CALL_HELD);
  }
}

/// The call that waits is meant before those on hold.
void CallTable::TakeUpOther() {
  if (Call* const waiting = Find(BT_CALL_WAITING)) {
    Answer(*waiting);
  } else {
    SetAll(BT_CALL_HELD, BT_CALL_ACTIVE);
  }
}

void CallTable::HoldActive() {
  std::vector<Call*> active;
  for (const auto& call : m_calls) {
    if (call->status == BT_CALL_ACTIVE) {
      active.push_back(call.get());
    }
  }
  TakeUpOther();
  for (Call* const call : active) {
    call->status = BT_CALL_HELD;
  }
}

void CallTable::Join() {
  SetAll(BT_CALL_HELD, BT_CALL_ACTIVE);
  for (const auto& call : m_calls) {
    call->multiparty = call->status == BT_CALL_ACTIVE;
  }
}

}  // namespace btservice
