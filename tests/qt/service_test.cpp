// Whether the service is there, and what is subscribed of it.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;

}  // namespace

class ServiceTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void theServiceSaysWhetherItIsThere();
  void onlyWhatIsUsedIsSubscribed();
  void subjectsOfOneTurnShareAReport();
};

void ServiceTest::theServiceSaysWhetherItIsThere() {
  QSignalSpy changed(m_bt.get(), &BtService::availabilityChanged);
  QCOMPARE(m_bt->availability(), BtService::Unknown);
  QVERIFY(!m_bt->isFresh());
  m_bt->adapter();
  settle();
  QCOMPARE(m_bt->availability(), BtService::Present);
  QVERIFY(m_bt->isFresh());
  QCOMPARE(changed.count(), 1);
  m_fake->SetAvailability(btasync::Availability::Absent);
  settle();
  QCOMPARE(m_bt->availability(), BtService::Absent);
  QVERIFY(!m_bt->isFresh());
  QVERIFY(!m_bt->adapter()->isFresh());
  QCOMPARE(m_bt->adapter()->name(), QStringLiteral("Head Unit"));  // greyed, and still there
  m_fake->SetAvailability(btasync::Availability::Present);
  settle();
  QVERIFY(m_bt->isFresh());
  m_bt->music();
  QVERIFY2(!m_bt->isFresh(), "a subject that has just been made knows nothing yet");
  settle();
  QVERIFY(m_bt->isFresh());
}

void ServiceTest::onlyWhatIsUsedIsSubscribed() {
  settle();
  QVERIFY(m_fake->Requests().empty());
  QVERIFY(!m_fake->IsAwaited<PowerChanged>());
  m_bt->adapter();
  settle();
  QVERIFY(m_fake->IsAwaited<PowerChanged>());
  QVERIFY(!m_fake->IsAwaited<CallStatusChanged>());
  QVERIFY(!m_fake->IsAwaited<MusicChanged>());
  QCOMPARE(countOf("CurrentCalls()"), 0);
  QCOMPARE(m_bt->adapter(), m_bt->adapter());
}

void ServiceTest::subjectsOfOneTurnShareAReport() {
  settle();
  m_bt->adapter();
  m_bt->devices();
  m_bt->calls();
  m_bt->network();
  m_bt->download();
  settle();
  QCOMPARE(countOf("GetBluetoothServiceStatus()"), 1);
  QVERIFY(m_bt->isFresh());
  m_fake->ForgetRequests();
  m_fake->SetAvailability(btasync::Availability::Absent);
  m_fake->SetAvailability(btasync::Availability::Present);
  settle();
  QCOMPARE(countOf("GetBluetoothServiceStatus()"), 1);
}

QTEST_GUILESS_MAIN(ServiceTest)
#include "service_test.moc"
