#ifndef BTASYNC_ANSWER_H
#define BTASYNC_ANSWER_H

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include <btasync/Export.h>

namespace btasync {
inline namespace v0 {

/// Why there is no answer.
enum class Reason {
  NoBus,            ///< no connection to a session bus; the library keeps trying
  NoService,        ///< nobody on the bus is the Bluetooth service, and the bus could not start it
  ServiceGone,      ///< it ended before it answered: whether the request was carried out is not known
  TimedOut,         ///< the deadline passed before it answered: likewise
  Cancelled,        ///< by Call::Cancel: likewise
  ServiceError,     ///< it answered with a D-Bus error, whose name and text are the detail
  Malformed,        ///< its answer, or its memory, is not what the interface says
  InvalidArgument,  ///< an argument cannot travel (a NUL inside, not UTF-8, no address): nothing was sent
};

/// A word for a reason: "no bus", "timed out".
BTASYNC_API const char* ToText(Reason reason);

/// A failure, with words for a log. Never show the detail to a user.
struct Failure {
  Reason reason = Reason::NoBus;
  std::string detail;
};

/// The service accepted the request. Events report what comes of it, and may come before the answer does.
struct Accepted {};

/// The service refused the request.
struct Refusal {};

/// What a request came to: a value, a refusal, or a failure; exactly one of the three. A refusal is the
/// service's decision, and asking again changes nothing: the adapter is off, the device is not known, it is
/// busy. After a failure nobody knows more than its reason says.
template <typename T = Accepted>
class [[nodiscard]] Answer {
 public:
  Answer(T value) : m_value(std::move(value)) {}
  Answer(Refusal) : m_isRefused(true) {}
  Answer(Refusal, T by) : m_value(std::move(by)), m_isRefused(true) {}
  Answer(Failure failure) : m_failure(std::move(failure)) {}

  bool Accepted() const { return m_value.has_value() && !m_isRefused; }
  bool Refused() const { return m_isRefused; }
  bool Failed() const { return !Accepted() && !Refused(); }
  /// Accepted(). An Answer<bool> has none: whether it is there and whether it is true would look the same.
  template <typename Value = T, std::enable_if_t<!std::is_same_v<Value, bool>, int> = 0>
  explicit operator bool() const {
    return Accepted();
  }

  /// The value; only if Accepted().
  T& operator*() & { return *m_value; }
  const T& operator*() const& { return *m_value; }
  T&& operator*() && { return *std::move(m_value); }
  T* operator->() { return &*m_value; }
  const T* operator->() const { return &*m_value; }
  /// The value, or other if there is none.
  T ValueOr(T other) const { return Accepted() ? *m_value : std::move(other); }
  /// Of an outcome (Outcome.h): the event by which the service reported that it has failed, such as the
  /// PairChanged that has the reason. Null if the request itself was refused, or nothing was.
  const T* RefusedBy() const { return m_isRefused && m_value ? &*m_value : nullptr; }
  /// The failure; only if Failed().
  const Failure& Why() const { return m_failure; }

 private:
  std::optional<T> m_value;
  Failure m_failure;
  bool m_isRefused = false;
};

}  // namespace v0
}  // namespace btasync

#endif
