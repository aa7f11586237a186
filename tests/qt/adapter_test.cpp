// The adapter: what it shows, and what it asks for.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;
using std::chrono::milliseconds;

}  // namespace

class AdapterTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void theAdapterShowsAndAsks();
  void propertiesChangeWhenTheServiceSaysSo();
};

void AdapterTest::theAdapterShowsAndAsks() {
  Adapter* const adapter = m_bt->adapter();
  settle();
  QCOMPARE(adapter->power(), Adapter::PowerOn);
  QCOMPARE(adapter->name(), QStringLiteral("Head Unit"));
  QCOMPARE(adapter->address(), QStringLiteral("00:1B:DC:00:00:01"));
  QVERIFY(adapter->isDiscoverable());
  QVERIFY(!adapter->isScanning());
  m_fake->Emit(ScanChanged{BT_SCAN_SCANNING});
  m_fake->Emit(AttributeChanged{BT_ATTR_LOCAL_NAME, "Jörgs Auto"});
  settle();
  QVERIFY(adapter->isScanning());
  QCOMPARE(adapter->name(), QStringLiteral("Jörgs Auto"));

  adapter->setPower(false);
  QCOMPARE(asked(), QStringLiteral("SetPower(byte 0x00,)"));
  adapter->startScan();
  QCOMPARE(asked(), QStringLiteral("SetScanAction(true,)"));
  adapter->stopScan();
  QCOMPARE(asked(), QStringLiteral("SetScanAction(false,)"));
  adapter->setName(QStringLiteral("Jörg"));
  QCOMPARE(asked(), QStringLiteral("SetAttribute(byte 0x00, 'Jörg')"));
  adapter->setDiscoverable(true);
  QCOMPARE(asked(), QStringLiteral("SetCapability(byte 0x09, byte 0x01)"));
}

void AdapterTest::propertiesChangeWhenTheServiceSaysSo() {
  Adapter* const adapter = m_bt->adapter();
  settle();
  QSignalSpy changed(adapter, &Adapter::powerChanged);
  m_fake->WillAccept(&Service::SetPower)
      .Emits(PowerChanged{BT_POWER_TURNING_OFF})
      .Emits(PowerChanged{BT_POWER_OFF}, milliseconds(100));
  adapter->setPower(false);
  QCOMPARE(adapter->power(), Adapter::PowerOn);
  settle();
  QCOMPARE(adapter->power(), Adapter::PowerTurningOff);
  m_fake->Advance(milliseconds(100));
  QCOMPARE(adapter->power(), Adapter::PowerOff);
  QCOMPARE(changed.count(), 2);
  m_fake->Emit(PowerChanged{BT_POWER_OFF});
  settle();
  QCOMPARE(changed.count(), 2);
}

QTEST_GUILESS_MAIN(AdapterTest)
#include "adapter_test.moc"
