#ifndef QT_CHANGES_H
#define QT_CHANGES_H

#include <QVarLengthArray>
#include <utility>

namespace btqt {

/// Sets properties of an object, and reports at the end those that have changed: whoever hears of one sees
/// all of them changed.
///
///   Changes changes(*this);
///   changes.set(m_title, title, &Music::titleChanged);
template <typename Object>
class Changes {
 public:
  using Signal = void (Object::*)();

  explicit Changes(Object& object) : m_object(object) {}
  Changes(const Changes&) = delete;
  Changes& operator=(const Changes&) = delete;
  ~Changes() {
    for (const Signal signal : m_signals) {
      (m_object.*signal)();
    }
  }

  template <typename Value, typename To>
  void set(Value& value, To&& to, Signal signal) {
    Value next(std::forward<To>(to));
    if (value != next) {
      value = std::move(next);
      add(signal);
    }
  }
  /// Reports it once, whatever has changed.
  void add(Signal signal) {
    if (!m_signals.contains(signal)) {
      m_signals.append(signal);
    }
  }

 private:
  Object& m_object;
  QVarLengthArray<Signal, 8> m_signals;
};

}  // namespace btqt

#endif
