// What can be done with two calls.

#include "service/model/CallTable.h"

namespace btservice {

bool CallTable::Perform(CallAction action, int callId) {
  if (callId != 0 && FindById(callId) == nullptr) {
    return false;
  }
  bool done = false;
  switch (action) {
    case BT_CALL_RELEASE_HELD:
      done = ReleaseHeld();
      break;
    case BT_CALL_RELEASE_ACTIVE:
      done = ReleaseActive(callId);
      break;
    case BT_CALL_HOLD_ACTIVE:
      return HoldActive(callId);
    case BT_CALL_CONFERENCE:
      done = Join();
      break;
    case BT_CALL_TRANSFER:
      done = Transfer();
      break;
  }
  if (done) {
    Commit();
  }
  return done;
}

bool CallTable::ReleaseHeld() {
  if (Call* const waiting = Find(BT_CALL_WAITING)) {
    waiting->rejectedHere = true;
    End(*waiting);
    return true;
  }
  return EndAll(BT_CALL_HELD);
}

bool CallTable::ReleaseActive(int callId) {
  if (Call* const call = FindById(callId)) {
    End(*call);
    return true;
  }
  if (!Has(BT_CALL_ACTIVE)) {
    return false;
  }
  EndAll(BT_CALL_ACTIVE);
  if (Call* const waiting = Find(BT_CALL_WAITING)) {
    Answer(*waiting);
  } else {
    SetAll(BT_CALL_HELD, BT_CALL_ACTIVE);
  }
  return true;
}

bool CallTable::HoldActive(int callId) {
  Call* const waiting = Find(BT_CALL_WAITING);
  Call* const wanted = FindById(callId);
  if (wanted != nullptr && wanted->multiparty && wanted->status == BT_CALL_ACTIVE && !Has(BT_CALL_HELD)) {
    // A word in private with one member of the conference.
    SetAll(BT_CALL_ACTIVE, BT_CALL_HELD);
    wanted->status = BT_CALL_ACTIVE;
    wanted->multiparty = false;
    SetMultiparty();
  } else if (waiting != nullptr) {
    if (Has(BT_CALL_ACTIVE) && Has(BT_CALL_HELD)) {
      return false;  // nowhere to put the active one
    }
    SetAll(BT_CALL_ACTIVE, BT_CALL_HELD);
    Answer(*waiting);
  } else if (Has(BT_CALL_ACTIVE) || Has(BT_CALL_HELD)) {
    for (const auto& call : m_calls) {
      if (call->status == BT_CALL_ACTIVE || call->status == BT_CALL_HELD) {
        call->status = call->status == BT_CALL_ACTIVE ? BT_CALL_HELD : BT_CALL_ACTIVE;
      }
    }
  } else {
    return false;
  }
  Commit();
  return true;
}

bool CallTable::Join() {
  if (!Has(BT_CALL_ACTIVE) || !Has(BT_CALL_HELD)) {
    return false;
  }
  SetAll(BT_CALL_HELD, BT_CALL_ACTIVE);
  for (const auto& call : m_calls) {
    call->multiparty = call->status == BT_CALL_ACTIVE;
  }
  return true;
}

bool CallTable::Transfer() {
  if (!Has(BT_CALL_ACTIVE) || !Has(BT_CALL_HELD)) {
    return false;
  }
  EndAll(BT_CALL_ACTIVE);
  EndAll(BT_CALL_HELD);
  return true;
}

}  // namespace btservice
