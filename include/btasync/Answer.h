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
/// @param reason any, also one that the enumeration does not have
/// @returns a text that is there for good, never null
BTASYNC_API const char* ToText(Reason reason);

/// A failure, with words for a log. Never show the detail to a user.
struct Failure {
  Reason reason = Reason::NoBus;  ///< what to decide by
  std::string detail;             ///< for a log: the error of D-Bus, or the argument; may be empty
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
  /// Accepted.
  /// @param value what the service answered
  Answer(T value) : m_value(std::move(value)) {}
  /// Refused.
  Answer(Refusal) : m_isRefused(true) {}
  /// Refused by an event, of which the outcome is made.
  /// @param by the event
  Answer(Refusal, T by) : m_value(std::move(by)), m_isRefused(true) {}
  /// Failed.
  /// @param failure why
  Answer(Failure failure) : m_failure(std::move(failure)) {}

  /// The service accepted the request, and its value is there.
  /// @returns true for exactly one of Accepted, Refused and Failed
  bool Accepted() const { return m_value.has_value() && !m_isRefused; }
  /// The service refused the request.
  /// @returns true for exactly one of Accepted, Refused and Failed
  bool Refused() const { return m_isRefused; }
  /// Nobody answered, or not in a way that counts: Why() has the reason.
  /// @returns true for exactly one of Accepted, Refused and Failed
  bool Failed() const { return !Accepted() && !Refused(); }
  /// Accepted(). An Answer<bool> has none: whether it is there and whether it is true would look the same.
  template <typename Value = T, std::enable_if_t<!std::is_same_v<Value, bool>, int> = 0>
  explicit operator bool() const {
    return Accepted();
  }

  /// The value; only if Accepted(), else the behaviour is not defined.
  /// @returns the value, which belongs to the answer
  T& operator*() & { return *m_value; }
  /// The value; only if Accepted(), else the behaviour is not defined.
  /// @returns the value, which belongs to the answer
  const T& operator*() const& { return *m_value; }
  /// The value, to be moved out of the answer; only if Accepted(), else the behaviour is not defined.
  /// @returns the value
  T&& operator*() && { return *std::move(m_value); }
  /// The value; only if Accepted(), else the behaviour is not defined.
  /// @returns the value, which belongs to the answer
  T* operator->() { return &*m_value; }
  /// The value; only if Accepted(), else the behaviour is not defined.
  /// @returns the value, which belongs to the answer
  const T* operator->() const { return &*m_value; }
  /// The value, or another if there is none.
  /// @param other what stands in for it
  /// @returns a copy of the value if Accepted(), else other
  T ValueOr(T other) const { return Accepted() ? *m_value : std::move(other); }
  /// Of an outcome (Outcome.h): the event by which the service reported that it has failed, such as the
  /// PairChanged that has the reason. Null if the request itself was refused, or nothing was.
  /// @returns the event, which belongs to the answer, or null
  const T* RefusedBy() const { return m_isRefused && m_value ? &*m_value : nullptr; }
  /// The failure; only if Failed(), else it means nothing.
  /// @returns the failure, which belongs to the answer
  const Failure& Why() const { return m_failure; }

 private:
  std::optional<T> m_value;
  Failure m_failure;
  bool m_isRefused = false;
};

}  // namespace v0
}  // namespace btasync

#endif
