// What a screen has asked for, and what it came to.

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <memory>
#include <thread>

#include "BtService.h"
#include "KnownService.h"

namespace {

using namespace btqt;
using btasync::Service;
using std::chrono::milliseconds;

class OperationTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void isUnderWayUntilTheAnswer();
  void saysWhetherItWasRefused();
  void saysWhyItFailed();
  void holdsItsOwnDeadline();
  void isCancelled();
  void isReadyForAnother();
  void dropsTheOneBefore();
  void reportsNothingOnceItHasGone();
  void endsWithTheService();
  void failsByTheLoopWhatCannotBeSent();
  void nobodyHasToFollow();
  void failsIfAnotherThreadAsks();
  void failsByItsOwnLoopWhatAnotherThreadCannotSend();

 private:
  std::unique_ptr<bttest::KnownService> m_fake;
  std::unique_ptr<BtService> m_bt;
  std::unique_ptr<Operation> m_operation;
  std::unique_ptr<QSignalSpy> m_finished;
};

void OperationTest::init() {
  QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
  m_fake = std::make_unique<bttest::KnownService>();
  m_bt = std::make_unique<BtService>(*m_fake);
  m_operation = std::make_unique<Operation>();
  m_finished = std::make_unique<QSignalSpy>(m_operation.get(), &Operation::finished);
}

void OperationTest::cleanup() {
  m_operation.reset();
  m_bt.reset();
  m_fake.reset();
}

void OperationTest::isUnderWayUntilTheAnswer() {
  m_fake->WillAccept(&Service::SetPower).After(milliseconds(50));
  QVERIFY(!m_operation->isUnderWay());
  QCOMPARE(m_operation->result(), Operation::None);
  QSignalSpy underWay(m_operation.get(), &Operation::underWayChanged);
  m_bt->adapter()->setPower(false, m_operation.get());
  QVERIFY(m_operation->isUnderWay());
  QCOMPARE(underWay.count(), 1);
  m_fake->Advance(milliseconds(49));
  QVERIFY(m_operation->isUnderWay());
  QCOMPARE(m_finished->count(), 0);
  m_fake->Advance(milliseconds(1));
  QVERIFY(!m_operation->isUnderWay());
  QCOMPARE(m_operation->result(), Operation::Accepted);
  QCOMPARE(m_operation->reason(), Operation::NoReason);
  QCOMPARE(m_finished->count(), 1);
  QCOMPARE(m_finished->at(0).at(0).value<Operation::Result>(), Operation::Accepted);
  QCOMPARE(underWay.count(), 2);
}

void OperationTest::saysWhetherItWasRefused() {
  m_fake->WillRefuse(&Service::DialCall);
  m_bt->calls()->dial(QStringLiteral("110"), m_operation.get());
  m_fake->Settle();
  QCOMPARE(m_operation->result(), Operation::Refused);
  QCOMPARE(m_operation->reason(), Operation::NoReason);
}

void OperationTest::saysWhyItFailed() {
  m_fake->WillFail(&Service::DialCall, btasync::Reason::ServiceError, "org.example.Tired: not today");
  m_bt->calls()->dial(QStringLiteral("110"), m_operation.get());
  m_fake->Settle();
  QCOMPARE(m_operation->result(), Operation::Failed);
  QCOMPARE(m_operation->reason(), Operation::ServiceError);
  QCOMPARE(m_operation->detail(), QStringLiteral("org.example.Tired: not today"));

  m_bt->devices()->pair(QStringLiteral("no address"), m_operation.get());
  QCOMPARE(m_operation->detail(), QString());
  m_fake->Settle();
  QCOMPARE(m_operation->reason(), Operation::InvalidArgument);
}

void OperationTest::holdsItsOwnDeadline() {
  m_fake->WillHang(&Service::SetPower);
  m_operation->setDeadline(300);
  m_bt->adapter()->setPower(true, m_operation.get());
  m_fake->Advance(milliseconds(299));
  QVERIFY(m_operation->isUnderWay());
  m_fake->Advance(milliseconds(1));
  QCOMPARE(m_operation->reason(), Operation::TimedOut);

  m_operation->setDeadline(0);
  m_bt->adapter()->setPower(true, m_operation.get());
  m_fake->Advance(milliseconds(24999));
  QVERIFY(m_operation->isUnderWay());
  m_fake->Advance(milliseconds(1));
  QCOMPARE(m_operation->reason(), Operation::TimedOut);
}

void OperationTest::isCancelled() {
  m_fake->WillHang(&Service::SetPower);
  m_operation->cancel();
  QCOMPARE(m_finished->count(), 0);
  m_bt->adapter()->setPower(true, m_operation.get());
  m_operation->cancel();
  m_fake->Settle();
  QCOMPARE(m_operation->reason(), Operation::Cancelled);
  QCOMPARE(m_finished->count(), 1);
}

void OperationTest::isReadyForAnother() {
  m_fake->WillAccept(&Service::SetPower);
  QObject::connect(m_operation.get(), &Operation::finished, m_bt.get(), [this] {
    if (m_finished->count() == 1) {
      m_bt->adapter()->setPower(false, m_operation.get());
    }
  });
  m_bt->adapter()->setPower(true, m_operation.get());
  m_fake->Settle();
  QCOMPARE(m_finished->count(), 2);
  QVERIFY(!m_operation->isUnderWay());
}

void OperationTest::dropsTheOneBefore() {
  m_fake->WillRefuse(&Service::SetPower).After(milliseconds(10));
  m_fake->WillAccept(&Service::DialCall).After(milliseconds(20));
  m_bt->adapter()->setPower(true, m_operation.get());
  m_bt->calls()->dial(QStringLiteral("110"), m_operation.get());
  m_fake->Advance(milliseconds(10));
  QVERIFY(m_operation->isUnderWay());
  m_fake->Advance(milliseconds(10));
  QCOMPARE(m_operation->result(), Operation::Accepted);
  QCOMPARE(m_finished->count(), 1);
}

void OperationTest::reportsNothingOnceItHasGone() {
  m_fake->WillAccept(&Service::SetPower);
  m_bt->adapter()->setPower(true, m_operation.get());
  m_operation.reset();
  m_fake->Settle();
  QCOMPARE(m_finished->count(), 0);
  QCOMPARE(m_fake->Requests().front(), std::string("SetPower(byte 0x01,)"));
}

void OperationTest::endsWithTheService() {
  m_fake->WillHang(&Service::SetPower);
  m_bt->adapter()->setPower(true, m_operation.get());
  m_bt.reset();
  QVERIFY(!m_operation->isUnderWay());
  QCOMPARE(m_operation->reason(), Operation::Cancelled);
  m_fake->Advance(std::chrono::seconds(30));
  QCOMPARE(m_finished->count(), 1);
}

void OperationTest::failsByTheLoopWhatCannotBeSent() {
  for (const char* const tone : {"", "12", "x", "\303\244"}) {
    m_finished->clear();
    m_fake->ForgetRequests();
    m_bt->calls()->sendTone(QString::fromUtf8(tone), m_operation.get());
    QVERIFY(m_operation->isUnderWay());
    QVERIFY(m_finished->wait());
    QCOMPARE(m_operation->reason(), Operation::InvalidArgument);
    m_fake->Settle();
    for (const std::string& request : m_fake->Requests()) {
      QVERIFY(request.find("SendDTMF") == std::string::npos);
    }
  }
}

void OperationTest::nobodyHasToFollow() {
  m_fake->WillRefuse(&Service::SetPower);
  m_bt->adapter()->setPower(true);
  m_bt->calls()->sendTone(QStringLiteral("12"));
  m_fake->Settle();
  QCOMPARE(m_fake->Requests().front(), std::string("SetPower(byte 0x01,)"));
  for (const std::string& request : m_fake->Requests()) {
    QVERIFY(request.find("SendDTMF") == std::string::npos);
  }
}

void OperationTest::failsIfAnotherThreadAsks() {
  m_fake->WillAccept(&Service::SetPower);
  m_bt->adapter();
  m_fake->Settle();
  m_fake->ForgetRequests();
  std::thread other([this] { m_bt->adapter()->setPower(false, m_operation.get()); });
  other.join();
  QVERIFY(m_finished->wait());
  QVERIFY(!m_operation->isUnderWay());
  QCOMPARE(m_operation->result(), Operation::Failed);
  QCOMPARE(m_operation->reason(), Operation::InvalidArgument);
  m_fake->Settle();
  QVERIFY(m_fake->Requests().empty());
  // It is ready for another one.
  m_bt->adapter()->setPower(false, m_operation.get());
  m_fake->Settle();
  QCOMPARE(m_operation->result(), Operation::Accepted);
}

void OperationTest::failsByItsOwnLoopWhatAnotherThreadCannotSend() {
  m_bt->calls();
  QThread* reportedBy = nullptr;
  connect(
      m_operation.get(), &Operation::underWayChanged, this,
      [&reportedBy] { reportedBy = QThread::currentThread(); }, Qt::DirectConnection);
  std::thread other([this] { m_bt->calls()->sendTone(QStringLiteral("12"), m_operation.get()); });
  other.join();
  QVERIFY(!m_operation->isUnderWay());
  QCOMPARE(reportedBy, nullptr);
  QVERIFY(m_finished->wait());
  QCOMPARE(reportedBy, thread());
  QCOMPARE(m_operation->result(), Operation::Failed);
  QCOMPARE(m_operation->reason(), Operation::InvalidArgument);
}

}  // namespace

QTEST_GUILESS_MAIN(OperationTest)
#include "operation_test.moc"
