#ifndef LIBBTASYNC_STEP_H
#define LIBBTASYNC_STEP_H

#include <chrono>
#include <functional>

#include <btasync/Request.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// A service call of something that makes several of them, one after the other.
class Step {
 public:
  Step() = default;
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;
  /// onReply is not called any more.
  ~Step();

  /// Makes a call. onReply gets the reply, by the loop, never before this returns; it may destroy this. The
  /// call before must have been answered.
  void Ask(Outgoing outgoing, std::chrono::milliseconds deadline, std::function<void(Reply&)> onReply);

 private:
  class StepCall;

  void Forget();

  StepCall* m_call = nullptr;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
