#include "service/reports/CallReports.h"

#include <algorithm>
#include <utility>

namespace btservice {

CallReports::CallReports(Scheduler& scheduler, const StackObservers& observers, Milliseconds period,
                         Calls calls)
    : m_observers(observers), m_period(period), m_calls(std::move(calls)), m_tick(scheduler) {}

void CallReports::ReportChanges(const std::set<CallAction>& possible) {
  const std::vector<ReportedCall> calls = m_calls();
  const int count = static_cast<int>(calls.size());
  const std::map<int, CallStatus> before = std::exchange(m_reported, {});
  for (const ReportedCall& call : calls) {
    m_reported[call.id] = call.status;
  }
  const bool timeRuns = std::any_of(calls.begin(), calls.end(), [](const ReportedCall& call) {
    return call.status == BT_CALL_ACTIVE || call.status == BT_CALL_HELD;
  });
  if (!timeRuns) {
    m_tick.Stop();
  } else if (!m_tick.IsRunning()) {
    m_tick.Start(m_period, [this] { Tick(); });
  }

  for (const auto& [id, status] : before) {
    if (m_reported.count(id) == 0) {
      m_observers.Report(CallChanged{id, BT_CALL_IDLE, count});
      m_observers.Report(CallHungUp{});
    }
  }
  for (const auto& [id, status] : m_reported) {
    const auto old = before.find(id);
    if (old == before.end() || old->second != status) {
      m_observers.Report(CallChanged{id, status, count});
    }
  }
  m_observers.Report(CallsChanged{count});

  const std::set<CallAction> possibleBefore = std::exchange(m_possible, possible);
  for (const CallAction action : kCallActions) {
    const bool isPossible = m_possible.count(action) != 0;
    if (isPossible != (possibleBefore.count(action) != 0)) {
      m_observers.Report(CallActionChanged{action, isPossible});
    }
  }
}

void CallReports::ReportAll() const {
  const std::vector<ReportedCall> calls = m_calls();
  const int count = static_cast<int>(calls.size());
  for (const ReportedCall& call : calls) {
    m_observers.Report(CallChanged{call.id, call.status, count});
  }
  m_observers.Report(CallsChanged{count});
  ReportTimes();
  for (const CallAction action : m_possible) {
    m_observers.Report(CallActionChanged{action, true});
  }
}

void CallReports::ReportTimes() const {
  for (const ReportedCall& call : m_calls()) {
    if (call.answered) {
      m_observers.Report(CallTimeChanged{call.seconds, call.id, call.status == BT_CALL_ACTIVE});
    }
  }
}

void CallReports::Tick() {
  ReportTimes();
  m_tick.Start(m_period, [this] { Tick(); });
}

}  // namespace btservice
