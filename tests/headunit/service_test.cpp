// The service hangs, dies, and comes back; the bus is restarted.

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"

namespace {

constexpr int kFrames = 60;

}  // namespace

class ServiceTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void framesGoOnWhileTheServiceHangs();
  void itDiesInACallAndComesBack();
  void theBusIsRestarted();

 private:
  /// A call that is under way on the screen.
  static bool talk(RunningHeadUnit& unit);
  static qreal opacityOf(RunningHeadUnit& unit, const char* name);
};

bool ServiceTest::talk(RunningHeadUnit& unit) {
  return unit.waitForPhone() &&
         unit.outside(QStringLiteral("Call"), {kAda, QStringLiteral("+49170000007")}) &&
         unit.tap(QStringLiteral("acceptCall")) &&
         unit.waitFor([&] { return unit.text(QStringLiteral("callState")) == QStringLiteral("Active"); });
}

qreal ServiceTest::opacityOf(RunningHeadUnit& unit, const char* name) {
  const QQuickItem* const item = unit.find(QLatin1String(name));
  return item != nullptr ? item->opacity() : -1;
}

void ServiceTest::framesGoOnWhileTheServiceHangs() {
  RunningHeadUnit unit;
  QVERIFY(unit.waitForPhone());
  QVERIFY(unit.tap(QStringLiteral("key1")));
  unit.holdService();
  QVERIFY(unit.tap(QStringLiteral("dial")));
  const QQuickItem* const dial = unit.find(QStringLiteral("dial"));
  const auto isUnderWay = [&] { return dial->property("busy").toBool(); };
  QVERIFY(unit.waitFor(isUnderWay));
  QVERIFY(unit.waitForFrames(kFrames, isUnderWay));
  // The person can look at other screens meanwhile.
  QVERIFY(unit.tap(QStringLiteral("navigation3")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("scan")); }));
  QVERIFY(unit.tap(QStringLiteral("navigation0")));
  QVERIFY(isUnderWay());
  QCOMPARE(unit.bt().calls()->count(), 0);
  unit.letServiceGo();
  QVERIFY(unit.waitFor([&] { return !isUnderWay() && unit.shows(QStringLiteral("callState")); }));
}

void ServiceTest::itDiesInACallAndComesBack() {
  RunningHeadUnit unit;
  QVERIFY(talk(unit));
  QVERIFY(unit.waitFor([&] {
    return unit.text(QStringLiteral("operator")) == QStringLiteral("Nordnetz") &&
           opacityOf(unit, "operator") == 1.0;
  }));
  unit.killService();
  QVERIFY(unit.waitFor([&] { return unit.bt().calls()->count() == 0; }));
  QVERIFY(!unit.shows(QStringLiteral("callState")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("availability")); }));
  // What is not known to be true any more is greyed, and still there.
  QCOMPARE(unit.text(QStringLiteral("operator")), QStringLiteral("Nordnetz"));
  QVERIFY(opacityOf(unit, "operator") < 1.0);

  unit.startService();
  QVERIFY(unit.waitForPhone());
  QVERIFY(!unit.shows(QStringLiteral("availability")));
  QVERIFY(unit.waitFor([&] { return opacityOf(unit, "operator") == 1.0; }));
  QCOMPARE(unit.bt().calls()->count(), 0);
  QVERIFY(talk(unit));
}

void ServiceTest::theBusIsRestarted() {
  RunningHeadUnit unit;
  QVERIFY(talk(unit));
  unit.stopBus();
  QVERIFY(unit.waitFor([&] { return unit.bt().availability() == btqt::BtService::NoBus; }));
  QCOMPARE(unit.text(QStringLiteral("availability")), QStringLiteral("No connection to the system"));
  QVERIFY(!unit.shows(QStringLiteral("callState")));
  unit.killService();
  unit.startBus();
  QVERIFY(unit.waitFor([&] { return unit.bt().availability() == btqt::BtService::Absent; }));
  QCOMPARE(unit.text(QStringLiteral("availability")), QStringLiteral("Bluetooth is starting …"));
  unit.startService();
  QVERIFY(talk(unit));
}

QTEST_MAIN(ServiceTest)
#include "service_test.moc"
