// The phone that calls go over, and its network.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;

}  // namespace

class NetworkTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void theNetworkIsShown();
};

void NetworkTest::theNetworkIsShown() {
  Network* const network = m_bt->network();
  settle();
  m_fake->Emit(OperatorChanged{"Küstenfunk"});
  m_fake->Emit(NetworkChanged{true});
  m_fake->Emit(SignalChanged{4});
  m_fake->Emit(RoamingChanged{true});
  m_fake->Emit(BatteryChanged{2});
  settle();
  QCOMPARE(network->phone(), kAdasAddress);
  QCOMPARE(network->operatorName(), QStringLiteral("Küstenfunk"));
  QVERIFY(network->isAvailable());
  QCOMPARE(network->signal(), 4);
  QVERIFY(network->isRoaming());
  QCOMPARE(network->battery(), 2);
  QVERIFY(network->isFresh());
}

QTEST_GUILESS_MAIN(NetworkTest)
#include "network_test.moc"
