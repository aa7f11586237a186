#ifndef SERVICE_SIMULATION_CALLS_CALLTABLE_H
#define SERVICE_SIMULATION_CALLS_CALLTABLE_H

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "service/reports/CallReports.h"
#include "service/simulation/devices/Connections.h"

namespace btservice {

/// One call of a phone.
struct Call {
  explicit Call(Scheduler& scheduler) : timer(scheduler) {}

  int id = 0;
  RemoteDevice* device = nullptr;
  CallStatus status = BT_CALL_IDLE;
  bool incoming = false;
  bool multiparty = false;
  bool answered = false;
  bool rejectedHere = false;
  std::string number;
  Milliseconds since{0};  ///< when it was answered, or else began
  Timer timer;            ///< to its next state, if that comes by itself
};

/// The calls of the connected phones: dialing, ringing, talking, waiting, held, joined. Requests are true if
/// they are possible in the state that the calls are in; what they change is reported before they return.
class CallTable {
 public:
  /// How many a phone can have at once: two, and one that waits.
  static constexpr std::size_t kMaximum = 3;

  CallTable(ModelContext& context, Settings& settings, Connections& connections);

  // The requests of CallControl.

  /// From the phone in use; the active call is held. False without a phone, for a number that cannot be
  /// dialled, while a call rings, waits or is on its way, and when one is active and one held.
  bool Dial(const std::string& number);
  /// The number that was dialled last, whatever became of that call; false if there is none.
  bool Redial();
  /// The call that rings or waits; the active one is held.
  bool Accept();
  /// The call that rings or waits.
  bool Reject();
  /// Ends the outgoing call or the active ones, or rejects the one that rings. A held call is not affected.
  bool HangUp();
  /// callId 0: the calls that the action concerns by itself.
  bool Perform(CallAction action, int callId);

  // What happens at the other end. False if it cannot happen.

  /// Somebody calls. The phone must be connected, and there must be less than three calls, none of which
  /// rings or waits.
  bool ComeIn(RemoteDevice& device, const std::string& number);
  /// Whoever is called answers.
  bool AnswerThere(RemoteDevice& device);
  /// callId 0: all calls of the device.
  bool EndThere(RemoteDevice& device, int callId);

  /// In the order in which they began. A call that has ended is no longer there, and its object is gone.
  const std::vector<std::unique_ptr<Call>>& All() const { return m_calls; }
  bool Has(CallStatus status) const;
  /// Whole seconds since it was answered; 0 if it was not.
  int Seconds(const Call& call) const;
  /// Reports the calls as they stand, for whoever comes late.
  void ReportAll() const { m_reports.ReportAll(); }

  Notifier<> onChanged;           ///< after each change, when it is complete and reported
  Notifier<const Call&> onEnded;  ///< a call is about to be taken out of the table

 private:
  Call& Begin(RemoteDevice& device, const std::string& number, bool incoming, CallStatus status);
  void WaitForOtherEnd(Call& call);
  Call* Find(CallStatus status) const;
  Call* FindById(int id) const;
  void SetAll(CallStatus from, CallStatus to);
  void Answer(Call& call);
  void End(Call& call);
  bool EndAll(CallStatus status);
  void SetMultiparty();
  void RingAlone(Call& call);
  /// Reports what is different from the last time, once all of it has changed.
  void Commit();
  std::vector<ReportedCall> Reported() const;
  std::set<CallAction> PossibleActions() const;

  bool IsPossible(CallAction action) const;
  bool PerformOn(CallAction action, int callId);
  bool PerformOnAll(CallAction action);
  void ReleaseHeld();
  void TakeUpOther();
  void HoldActive();
  void Join();

  ModelContext& m_context;
  Settings& m_settings;
  Connections& m_connections;
  std::vector<std::unique_ptr<Call>> m_calls;
  std::string m_lastDialed;
  CallReports m_reports;
};

}  // namespace btservice

#endif
