#ifndef SERVICE_FRONTEND_ANSWERGATE_H
#define SERVICE_FRONTEND_ANSWERGATE_H

#include <functional>

#include <gio/gio.h>

namespace btservice {

/// Stands between calls and their answers, for those who want to see what happens when answers fail, are odd,
/// come late or not at all. It is asked for each call of the service's interface, on the thread of the main
/// loop.
class AnswerGate {
 public:
  virtual ~AnswerGate() = default;
  /// True if the gate deals with the call by itself, and owns the invocation: nothing is to be done.
  virtual bool TakeOver(GDBusMethodInvocation* invocation) = 0;
  /// Runs answer, now or later, or never. What it would send is complete: it does not ask the stack again.
  virtual void Pass(GDBusMethodInvocation* invocation, std::function<void()> answer) = 0;
};

}  // namespace btservice

#endif
