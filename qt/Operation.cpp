#include "Operation.h"

#include <QThread>
#include <QTimer>

#include "Texts.h"

namespace btqt {
namespace {

static_assert(static_cast<int>(btasync::Reason::NoBus) == Operation::NoBus &&
                  static_cast<int>(btasync::Reason::TimedOut) == Operation::TimedOut &&
                  static_cast<int>(btasync::Reason::InvalidArgument) == Operation::InvalidArgument,
              "the reasons have the numbers of libbtasync's");

}  // namespace

Operation::Operation(QObject* parent) : QObject(parent) {}

void Operation::setDeadline(int milliseconds) {
  if (m_deadline != milliseconds) {
    m_deadline = milliseconds;
    Q_EMIT deadlineChanged();
  }
}

void Operation::cancel() {
  if (!m_isUnderWay) {
    return;
  }
  if (m_call.IsUnderWay()) {
    m_call.Cancel();
  } else {
    end(Failed, {btasync::Reason::Cancelled, "Operation::cancel"});
  }
}

void Operation::fail(QObject& owner, btasync::Reason reason, const char* detail) {
  if (!isOfThisThread(owner)) {
    return;
  }
  const bool isFirst = begin(owner);
  QTimer::singleShot(0, this, [this, number = m_number, failure = btasync::Failure{reason, detail}] {
    if (m_isUnderWay && m_number == number) {
      end(Failed, failure);
    }
  });
  if (isFirst) {
    Q_EMIT underWayChanged();
  }
}

bool Operation::isOfThisThread(const QObject& owner) {
  if (owner.thread() == QThread::currentThread()) {
    return true;
  }
  QMetaObject::invokeMethod(
      this,
      [this] {
        begin(*this);
        end(Failed, {btasync::Reason::InvalidArgument, "another thread than the service's has asked"});
      },
      Qt::QueuedConnection);
  return false;
}

bool Operation::begin(QObject& owner) {
  m_scope.Clear();
  m_call = btasync::Call();
  ++m_number;
  disconnect(m_owner);
  m_owner = connect(&owner, &QObject::destroyed, this, [this] {
    end(Failed, {btasync::Reason::Cancelled, "the service object has gone"});
  });
  const bool wasUnderWay = m_isUnderWay;
  m_isUnderWay = true;
  m_result = None;
  m_reason = NoReason;
  m_detail.clear();
  return !wasUnderWay;
}

void Operation::end(Result result, const btasync::Failure& failure) {
  m_scope.Clear();
  disconnect(m_owner);
  m_isUnderWay = false;
  m_result = result;
  if (result == Failed) {
    m_reason = static_cast<Reason>(failure.reason);
    m_detail = toQt(failure.detail);
  }
  Q_EMIT underWayChanged();
  Q_EMIT finished(result);
}

}  // namespace btqt
