#ifndef SERVICE_REPORTS_CALLREPORTS_H
#define SERVICE_REPORTS_CALLREPORTS_H

#include <functional>
#include <map>
#include <set>
#include <vector>

#include "service/stack/StackEvents.h"
#include "service/time/Timer.h"

namespace btservice {

/// What can be done with calls, in the order of its reports.
constexpr CallAction kCallActions[] = {BT_CALL_RELEASE_HELD, BT_CALL_RELEASE_ACTIVE, BT_CALL_HOLD_ACTIVE,
                                       BT_CALL_CONFERENCE, BT_CALL_TRANSFER};

/// What of a call is reported.
struct ReportedCall {
  int id = 0;
  CallStatus status = BT_CALL_IDLE;
  bool answered = false;  ///< its time is reported
  int seconds = 0;        ///< since then
};

/// Decides what a stack reports of its calls, and when: each change once, all of them together when the
/// change is complete, and the times of calls that were answered while one of them is active or held. For
/// every stack, on its thread. What is reported goes to the observers before the call returns; they may make
/// requests meanwhile.
class CallReports {
 public:
  /// The calls as they stand.
  using Calls = std::function<std::vector<ReportedCall>()>;

  /// The scheduler, the observers, and what calls refers to must outlive this. calls is asked whenever
  /// something is to be reported. period: between two reports of the times.
  CallReports(Scheduler& scheduler, const StackObservers& observers, Milliseconds period, Calls calls);

  /// Reports what is different from the last time: calls that ended, calls in another state, the number of
  /// calls, what can be done with them now (possible). Reports nothing if nothing is. Call it once all of a
  /// change is done.
  void ReportChanges(const std::set<CallAction>& possible);
  /// Reports the calls as they stand, for whoever comes late.
  void ReportAll() const;

 private:
  void ReportTimes() const;
  void Tick();

  const StackObservers& m_observers;
  Milliseconds m_period;
  Calls m_calls;
  std::map<int, CallStatus> m_reported;
  std::set<CallAction> m_possible;
  Timer m_tick;
};

}  // namespace btservice

#endif
