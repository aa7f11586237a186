// What is reported about the calls, and when.

#include <utility>

#include "service/simulation/calls/CallTable.h"

namespace btservice {

void CallTable::Commit() {
  if (m_calls.size() == 1 && m_calls.front()->status == BT_CALL_WAITING) {
    RingAlone(*m_calls.front());
  }
  const int count = static_cast<int>(m_calls.size());
  const std::map<int, CallStatus> before = std::exchange(m_reported, {});
  for (const auto& call : m_calls) {
    m_reported[call->id] = call->status;
  }
  if (!Has(BT_CALL_ACTIVE) && !Has(BT_CALL_HELD)) {
    m_tick.Stop();
  } else if (!m_tick.IsRunning()) {
    m_tick.Start(m_context.delays.callTick, [this] { Tick(); });
  }

  for (const auto& [id, status] : before) {
    if (m_reported.count(id) == 0) {
      m_context.Report(CallChanged{id, BT_CALL_IDLE, count});
      m_context.Report(CallHungUp{});
    }
  }
  for (const auto& [id, status] : m_reported) {
    const auto old = before.find(id);
    if (old == before.end() || old->second != status) {
      m_context.Report(CallChanged{id, status, count});
    }
  }
  m_context.Report(CallsChanged{count});
  ReportActions();
  onChanged();
}

void CallTable::ReportActions() {
  for (const CallAction action : {BT_CALL_RELEASE_HELD, BT_CALL_RELEASE_ACTIVE, BT_CALL_HOLD_ACTIVE,
                                  BT_CALL_CONFERENCE, BT_CALL_TRANSFER}) {
    const bool possible = IsPossible(action);
    if (possible != (m_possible.count(action) != 0)) {
      possible ? static_cast<void>(m_possible.insert(action)) : static_cast<void>(m_possible.erase(action));
      m_context.Report(CallActionChanged{action, possible});
    }
  }
}

void CallTable::ReportAll() const {
  const int count = static_cast<int>(m_calls.size());
  for (const auto& call : m_calls) {
    m_context.Report(CallChanged{call->id, call->status, count});
  }
  m_context.Report(CallsChanged{count});
  ReportTimes();
  for (const CallAction action : m_possible) {
    m_context.Report(CallActionChanged{action, true});
  }
}

void CallTable::ReportTimes() const {
  for (const auto& call : m_calls) {
    if (call->answered) {
      m_context.Report(CallTimeChanged{Seconds(*call), call->id, call->status == BT_CALL_ACTIVE});
    }
  }
}

void CallTable::Tick() {
  ReportTimes();
  m_tick.Start(m_context.delays.callTick, [this] { Tick(); });
}

}  // namespace btservice
