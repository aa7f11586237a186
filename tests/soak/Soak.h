#ifndef TESTS_SOAK_SOAK_H
#define TESTS_SOAK_SOAK_H

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "soak/Outages.h"
#include "soak/SoakClient.h"
#include "support/Waiting.h"
#include "tests/service/running_service.h"

namespace btsoak {

constexpr int kClients = 8;

/// What happens to the service and the bus.
enum Fault { DELAYED, REFUSED, LEFT, KILLED, RESTARTED, BUS_RESTARTED, FAULTS };
extern const std::array<const char*, FAULTS> kFaultTexts;

/// What a process had when it had warmed up, and at its end.
struct Usage {
  Report atStart;
  Report atEnd;
};

/// What has become of everything.
struct SoakResult {
  Report sum;  ///< of all applications
  double seconds = 0;
  long signals = 0;  ///< that the service was made to send
  std::array<long, FAULTS> faults{};
  std::vector<Usage> longest;  ///< the applications of the bus that lasted longest
  int segmentsAtStart = 0;
  int segmentsAtEnd = 0;
  long lossCount = 0;
  std::vector<std::string> losses;  ///< the first of them

  /// What never happened, so that the soak says nothing about it: one of the faults, any call, any delivery.
  std::vector<std::string> Omissions() const;
  bool IsGood() const { return lossCount == 0 && Omissions().empty(); }
};

/// Eight applications beside a service to which something happens all the time. The bus is restarted again
/// and again in the first third of the time, with new applications each time, since one that has lost its
/// bus cannot come back; the applications of the last bus live on until the end.
class Soak {
 public:
  explicit Soak(std::chrono::seconds duration);
  SoakResult Run();

 private:
  using Clock = std::chrono::steady_clock;

  void LiveWithOneBus(Clock::time_point end);
  void StartService();
  void StopService(Fault how);
  /// One fault after the other, and ordinary life between them.
  void MeetNextFault();
  void Delay();
  void Refuse();
  void LeaveBus();
  void ReplaceService(Fault how);
  void LoseBus();

  /// Ordinary life: the service sends events, and the applications do what they do.
  void Live(std::chrono::milliseconds duration);
  void SendEvent(bool mark = false);
  /// Sends an event and waits until all have heard it.
  void Mark();
  void ReadClients();
  /// Waits for something that all applications should say or do soon.
  template <typename Condition>
  void WaitForClients(const std::string& what, Condition condition);
  std::vector<Report> AskForReports();
  void Lose(const std::string& what);
  void HearFailure(const FailedRequest& request);
  void CheckGrowth(const std::vector<Usage>& usages);

  const std::chrono::seconds m_duration;
  SoakResult m_result;
  Outages m_outages;
  std::unique_ptr<btservice::RunningService> m_service;
  std::vector<std::unique_ptr<SoakClient>> m_clients;
  NumberedEvent m_event;  ///< the last one
  int m_bars = 0;
  int m_nextFault = 0;
  long m_refused = 0;   ///< answers that the applications have reported as refused
  long m_toRefuse = 0;  ///< how many should be
};

}  // namespace btsoak

#endif
