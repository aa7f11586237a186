#ifndef SERVICE_FRONTEND_ANSWERGATE_H
#define SERVICE_FRONTEND_ANSWERGATE_H

#include <functional>

#include <gio/gio.h>

namespace btservice {

/// Stands between calls and their answers, for those who want to see what happens when answers fail, are odd,
/// come late or not at all. It is asked for each call of the interface that a MethodBinder was given it with,
/// on the thread of the main loop. Neither function may throw. The gate must outlive the skeleton.
class AnswerGate {
 public:
  virtual ~AnswerGate() = default;
  /// Asked before the call is answered. True if the gate deals with the call by itself: it then owns the
  /// invocation and has to complete it, now or later, and the stack does not hear of the call.
  virtual bool TakeOver(GDBusMethodInvocation* invocation) = 0;
  /// Asked when the stack has answered. Runs answer, now or later, or never; answer completes the invocation,
  /// which otherwise stays the gate's. What it would send is complete: it does not ask the stack again. It
  /// may be run once at most, and on this thread.
  virtual void Pass(GDBusMethodInvocation* invocation, std::function<void()> answer) = 0;
};

}  // namespace btservice

#endif
