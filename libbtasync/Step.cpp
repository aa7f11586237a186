#include "libbtasync/Step.h"

#include <utility>

namespace btasync {
inline namespace v0 {
namespace detail {

class Step::StepCall final : public PendingCall {
 public:
  explicit StepCall(std::function<void(Reply&)>&& onReply) : m_onReply(std::move(onReply)) {}

 private:
  void Deliver(Reply& reply) override { m_onReply(reply); }
  void Forget() override {}

  const std::function<void(Reply&)> m_onReply;
};

Step::~Step() { Forget(); }

void Step::Forget() {
  if (m_call != nullptr) {
    m_call->Drop();
    std::exchange(m_call, nullptr)->Unref();
  }
}

void Step::Ask(Outgoing outgoing, std::chrono::milliseconds deadline, std::function<void(Reply&)> onReply) {
  Forget();
  m_call = new StepCall(std::move(onReply));
  m_call->Ref();
  outgoing.SetDeadline(deadline);
  outgoing.Send(*m_call);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
