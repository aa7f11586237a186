#ifndef SERVICE_SIMULATION_CONTROLS_CALLLIMIT_H
#define SERVICE_SIMULATION_CONTROLS_CALLLIMIT_H

#include "service/frontend/AnswerGate.h"

namespace btservice {

/// Refuses calls of the controls whose arguments are too large: what they carry is kept, or sent on in
/// messages that the bus has to accept. Some may be as large as a world, or fill a segment.
class CallLimit : public AnswerGate {
 public:
  bool TakeOver(GDBusMethodInvocation* invocation) override;
  void Pass(GDBusMethodInvocation*, std::function<void()> answer) override { answer(); }
};

}  // namespace btservice

#endif
