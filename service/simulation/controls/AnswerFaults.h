#ifndef SERVICE_SIMULATION_CONTROLS_ANSWERFAULTS_H
#define SERVICE_SIMULATION_CONTROLS_ANSWERFAULTS_H

#include <memory>
#include <string>
#include <vector>

#include "glib/OwnedId.h"
#include "service/frontend/AnswerGate.h"

namespace btservice {

/// Has the next answers of methods go wrong as ordered. The order given first is used up first.
class AnswerFaults : public AnswerGate {
 public:
  // method: the name of one, or "*" for any. An argument without sense throws std::invalid_argument.

  /// While a thousand answers are still to come, one more comes at once.
  void Delay(const std::string& method, unsigned count, unsigned milliseconds);
  void Fail(const std::string& method, unsigned count, const std::string& errorName,
            const std::string& message);
  /// tuple may be floating, and of any types.
  void Replace(const std::string& method, unsigned count, GVariant* tuple);
  void Drop(const std::string& method, unsigned count);
  void Clear() { m_faults.clear(); }

  bool TakeOver(GDBusMethodInvocation* invocation) override;
  void Pass(GDBusMethodInvocation* invocation, std::function<void()> answer) override;

 private:
  enum class Kind { DELAY, FAIL, REPLACE, DROP };
  struct Fault {
    Kind kind;
    std::string method;
    unsigned count;
    unsigned milliseconds = 0;
    std::string errorName{};
    std::string message{};
    OwnedVariant tuple{};
  };

  void Add(Fault fault);
  /// The fault that a call meets; it is used up by one. Null if there is none of the kind asked for.
  std::shared_ptr<Fault> Use(GDBusMethodInvocation* invocation, bool delays);
  /// An answer comes now: its source ends by itself.
  void Forget(guint ended);

  std::vector<std::shared_ptr<Fault>> m_faults;
  std::vector<OwnedSourceId> m_pending;  ///< of answers that are still to come
};

}  // namespace btservice

#endif
