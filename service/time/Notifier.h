#ifndef SERVICE_TIME_NOTIFIER_H
#define SERVICE_TIME_NOTIFIER_H

#include <functional>
#include <utility>
#include <vector>

namespace btservice {

/// Lets parts of a stack hear of each other without knowing each other. The callbacks are called one after
/// the other, in the order in which they were added, before the call returns; they can never be taken back.
template <typename... Args>
class Notifier {
 public:
  using Callback = std::function<void(Args...)>;

  /// What callback refers to must outlive the notifier. Not to be called by a callback.
  void Add(Callback callback) { m_callbacks.push_back(std::move(callback)); }
  void operator()(Args... args) const {
    for (const Callback& callback : m_callbacks) {
      callback(args...);
    }
  }

 private:
  std::vector<Callback> m_callbacks;
};

}  // namespace btservice

#endif
