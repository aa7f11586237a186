#ifndef QT_OPERATION_H
#define QT_OPERATION_H

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <chrono>
#include <utility>

#include <btasync/Answer.h>
#include <btasync/Request.h>
#include <btasync/Scope.h>

#include "Export.h"

namespace btqt {

/// Something that a screen has asked for, and what it came to. A screen has one for each thing that it wants
/// to follow, and passes it as the last argument:
///
///   Operation { id: switching; deadline: 5000; onFinished: if (result !== Operation.Accepted) … }
///   Button { enabled: !switching.underWay; onClicked: bt.adapter.setPower(true, switching) }
///
/// Accepted means that the service has taken it on. Properties change when the service reports what came of
/// it, which may be before the operation finishes.
///
/// Its end drops what is under way: nothing is reported any more. The service does not hear of that.
class BTASYNCQT_API Operation : public QObject {
  Q_OBJECT
  QML_ELEMENT
  /// Nobody has answered yet.
  Q_PROPERTY(bool underWay READ isUnderWay NOTIFY underWayChanged)
  /// What the last one came to; None as long as it is under way.
  Q_PROPERTY(Result result READ result NOTIFY underWayChanged)
  /// Why it failed; NoReason unless the result is Failed.
  Q_PROPERTY(Reason reason READ reason NOTIFY underWayChanged)
  /// Words on a failure, for a log. Not for users.
  Q_PROPERTY(QString detail READ detail NOTIFY underWayChanged)
  /// In milliseconds, for what is asked next; 0, as at first: the library's own.
  Q_PROPERTY(int deadline READ deadline WRITE setDeadline NOTIFY deadlineChanged)

 public:
  enum Result { None, Accepted, Refused, Failed };
  Q_ENUM(Result)
  /// As btasync::Reason.
  enum Reason {
    NoReason = -1,
    NoBus,            ///< no connection to a session bus
    NoService,        ///< the Bluetooth service is not there
    ServiceGone,      ///< it ended before it answered
    TimedOut,         ///< the deadline passed before it answered
    Cancelled,        ///< by cancel()
    ServiceError,     ///< it answered with an error
    Malformed,        ///< its answer cannot be understood
    InvalidArgument,  ///< nothing was sent: no address, no tone, or another thread has asked
  };
  Q_ENUM(Reason)

  explicit Operation(QObject* parent = nullptr);

  bool isUnderWay() const { return m_isUnderWay; }
  Result result() const { return m_result; }
  Reason reason() const { return m_reason; }
  QString detail() const { return m_detail; }
  int deadline() const { return m_deadline; }
  void setDeadline(int milliseconds);

  /// Ends it, as Failed for Cancelled, if it is under way. The service carries on with what it was asked for.
  Q_INVOKABLE void cancel();

  /// Sends a btasync::Request or Outcome and follows it. One that is under way is dropped for it. If owner
  /// goes before the answer comes, it ends as Cancelled.
  template <typename Asked>
  void follow(QObject& owner, Asked asked) {
    if (!isOfThisThread(owner)) {
      std::move(asked).Send();  // which refuses it, and logs that
      return;
    }
    const bool isFirst = begin(owner);
    const auto take = [this](const auto& answer) {
      end(answer.Accepted() ? Accepted : answer.Refused() ? Refused : Failed, answer.Why());
    };
    if (m_deadline > 0) {
      m_call = std::move(asked).Within(std::chrono::milliseconds(m_deadline)).Then(m_scope, take);
    } else {
      m_call = std::move(asked).Then(m_scope, take);
    }
    if (isFirst) {
      Q_EMIT underWayChanged();
    }
  }
  /// Fails, by the loop, without asking.
  void fail(QObject& owner, btasync::Reason reason, const char* detail);

 Q_SIGNALS:
  void underWayChanged();
  void deadlineChanged();
  /// It has ended, and is ready for another one.
  void finished(btqt::Operation::Result result);

 private:
  /// Whether this thread may ask. If not, it fails by its own loop.
  bool isOfThisThread(const QObject& owner);
  /// Whether none was under way.
  bool begin(QObject& owner);
  void end(Result result, const btasync::Failure& failure);

  bool m_isUnderWay = false;
  Result m_result = None;
  Reason m_reason = NoReason;
  QString m_detail;
  int m_deadline = 0;
  int m_number = 0;  ///< of the one that is followed
  QMetaObject::Connection m_owner;
  btasync::Call m_call;
  btasync::Scope m_scope;
};

/// Sends a btasync::Request or Outcome; operation may be null. owner: without it, the answer is of no use.
template <typename Asked>
void ask(QObject& owner, Asked asked, Operation* operation) {
  if (operation != nullptr) {
    operation->follow(owner, std::move(asked));
  } else {
    std::move(asked).Send();
  }
}

}  // namespace btqt

#endif
