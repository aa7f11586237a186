#ifndef SERVICE_CONTROL_CALLLIMIT_H
#define SERVICE_CONTROL_CALLLIMIT_H

#include "service/dbus/AnswerGate.h"

namespace btservice {

/// Refuses calls of the controls whose arguments are larger than a world may be: what they carry is kept, and
/// sent on in messages that the bus has to accept.
class CallLimit : public AnswerGate {
 public:
  bool TakeOver(GDBusMethodInvocation* invocation) override;
  void Pass(GDBusMethodInvocation*, std::function<void()> answer) override { answer(); }
};

}  // namespace btservice

#endif
