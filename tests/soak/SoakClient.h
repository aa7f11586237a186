#ifndef TESTS_SOAK_SOAKCLIENT_H
#define TESTS_SOAK_SOAKCLIENT_H

#include <cstdint>
#include <functional>
#include <string>

#include <gio/gio.h>

#include "glib/Owned.h"
#include "soak/EventSequence.h"
#include "soak/Report.h"

namespace btsoak {

/// A request of an application that failed, and when, in microseconds of the monotonic clock.
struct FailedRequest {
  std::int64_t begin = 0;
  std::int64_t end = 0;
  std::string text;  ///< the request and the reason
};

/// One of the applications, a process of soak_client. What it says is taken in by Read().
class SoakClient {
 public:
  struct Hearer {
    std::function<void(const FailedRequest&)> failed;
    std::function<void(const std::string&)> wrong;
  };

  SoakClient(int requestsPerSecond, Hearer hearer);
  /// Ends its input, and the process if it goes on nevertheless.
  ~SoakClient();
  SoakClient(const SoakClient&) = delete;
  SoakClient& operator=(const SoakClient&) = delete;

  void Read();
  bool HasStarted() const { return m_hasStarted; }
  bool HasHeard(const NumberedEvent& mark) const {
    return m_mark.service == mark.service && m_mark.number == mark.number;
  }
  long Failures() const { return m_failures; }

  void AskForReport();
  bool HasReported() const { return m_hasReported; }
  const Report& LastReport() const { return m_report; }

  /// Ends its input, so that it ends by itself.
  void Dismiss();
  bool HasEnded();
  /// Of a process that has ended: whether it did so as it should, with status 0.
  bool HasEndedWell() const;

 private:
  void Take(const std::string& line);

  Hearer m_hearer;
  OwnedObject<GSubprocess> m_process;
  int m_output;
  std::string m_unread;  ///< a line whose end is not there yet
  bool m_hasStarted = false;
  bool m_hasReported = false;
  NumberedEvent m_mark;
  Report m_report;
  long m_failures = 0;
};

}  // namespace btsoak

#endif
