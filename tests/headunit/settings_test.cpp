// Settings: power, the name, the search, pairing, and the list of paired devices.

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"

class SettingsTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void powerAndVisibilityAreSwitched();
  void theCarGetsAName();
  void aFoundDeviceIsPairedByComparingANumber();
  void aPairingIsRefusedHere();
  void aPairingIsWithdrawnThere();
  void aPinIsTyped();
  void pairedDevicesAreReordered();
  void aDeviceIsDisconnectedAndConnected();
  void aDeviceThatIsNotThereCannotBeConnected();
  void aPairedDeviceIsDeleted();

 private:
  /// Searches, and taps "Pair" in the row of a device.
  static bool pair(RunningHeadUnit& unit, const QString& address);
  static bool waitForDevices(RunningHeadUnit& unit);
  static QString row(const QString& address) { return QStringLiteral("paired/device ") + address; }
};

bool SettingsTest::waitForDevices(RunningHeadUnit& unit) {
  unit.open(SETTINGS);
  return unit.waitFor([&] { return unit.bt().devices()->paired()->count() == 2; }) && unit.waitForPhone();
}

bool SettingsTest::pair(RunningHeadUnit& unit, const QString& address) {
  return waitForDevices(unit) && unit.tap(QStringLiteral("scan")) &&
         unit.tap(QStringLiteral("found/device %1/pair").arg(address));
}

void SettingsTest::powerAndVisibilityAreSwitched() {
  RunningHeadUnit unit;
  unit.open(SETTINGS);
  btqt::Adapter& adapter = *unit.bt().adapter();
  QVERIFY(unit.waitFor([&] { return adapter.power() == btqt::Adapter::PowerOn; }));
  QVERIFY(unit.tap(QStringLiteral("discoverable")));
  QVERIFY(unit.waitFor([&] { return adapter.isDiscoverable(); }));
  QVERIFY(unit.tap(QStringLiteral("power")));
  QVERIFY(unit.waitFor([&] { return adapter.power() == btqt::Adapter::PowerOff; }));
  QVERIFY(!unit.wait(QStringLiteral("scan"))->isEnabled());
  QVERIFY(unit.tap(QStringLiteral("power")));
  QVERIFY(unit.waitFor([&] { return adapter.power() == btqt::Adapter::PowerOn; }));
}

void SettingsTest::theCarGetsAName() {
  RunningHeadUnit unit;
  QVERIFY(waitForDevices(unit));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("name")) == QStringLiteral("Head Unit"); }));
  QVERIFY(unit.tap(QStringLiteral("name")));
  QTest::keySequence(&unit.window(), QKeySequence::SelectAll);
  for (const char letter : {'v', 'a', 'n'}) {
    QTest::keyClick(&unit.window(), letter);
  }
  QTest::keyClick(&unit.window(), Qt::Key_Return);
  QVERIFY(unit.waitFor([&] { return unit.bt().adapter()->name() == QStringLiteral("van"); }));
}

void SettingsTest::aFoundDeviceIsPairedByComparingANumber() {
  RunningHeadUnit unit;
  QVERIFY(pair(unit, kCarla));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("digits")); }));
  QCOMPARE(unit.text(QStringLiteral("asking")), QStringLiteral("Carla's phone"));
  QCOMPARE(unit.text(QStringLiteral("digits")).size(), 6);
  QCOMPARE(unit.text(QStringLiteral("digits")), unit.bt().devices()->question()->digits());
  QVERIFY(unit.tap(QStringLiteral("acceptPairing")));
  QVERIFY(unit.outside(QStringLiteral("AcceptPairing"), {kCarla}));
  QVERIFY(unit.waitFor([&] { return unit.shows(row(kCarla)); }));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("digits")); }));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("found/device ") + kCarla); }));
}

void SettingsTest::aPairingIsRefusedHere() {
  RunningHeadUnit unit;
  QVERIFY(pair(unit, kCarla));
  QVERIFY(unit.tap(QStringLiteral("rejectPairing")));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("rejectPairing")); }));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("notice")) == QStringLiteral("Not paired"); }));
  QVERIFY(!unit.shows(row(kCarla)));
}

void SettingsTest::aPairingIsWithdrawnThere() {
  RunningHeadUnit unit;
  QVERIFY(pair(unit, kCarla));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("digits")); }));
  QVERIFY(unit.outside(QStringLiteral("RejectPairing"), {kCarla}));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("digits")); }));
  QVERIFY(unit.waitFor([&] {
    return unit.text(QStringLiteral("notice")) == QStringLiteral("Not paired: the device refused");
  }));
}

void SettingsTest::aPinIsTyped() {
  RunningHeadUnit unit;
  QVERIFY(waitForDevices(unit));
  const QString old = QStringLiteral("00:1A:7D:DA:71:17");
  QVERIFY(unit.outside(QStringLiteral("AddDevice"),
                       {QStringLiteral(R"({"address": "%1", "name": "Old phone", "profiles": ["hfp"],)"
                                       R"( "pairing": "pin-code", "pin": "1234"})")
                            .arg(old)}));
  QVERIFY(pair(unit, old));
  QVERIFY(unit.tap(QStringLiteral("typed")));
  QVERIFY(!unit.wait(QStringLiteral("acceptPairing"))->isEnabled());
  for (const char digit : {'1', 'x', '2', '3', '4'}) {
    QTest::keyClick(&unit.window(), digit);
  }
  QCOMPARE(unit.text(QStringLiteral("typed")), QStringLiteral("1234"));
  QVERIFY(unit.tap(QStringLiteral("acceptPairing")));
  QVERIFY(unit.waitFor([&] { return unit.shows(row(old)); }));
}

void SettingsTest::pairedDevicesAreReordered() {
  RunningHeadUnit unit;
  QVERIFY(waitForDevices(unit));
  btqt::RowsModel& paired = *unit.bt().devices()->paired();
  QCOMPARE(paired.rowOf(kBen), 1);
  QVERIFY(!unit.wait(row(kAda) + QStringLiteral("/up"))->isEnabled());
  QVERIFY(unit.tap(row(kBen) + QStringLiteral("/up")));
  QVERIFY(unit.waitFor([&] { return paired.rowOf(kBen) == 0; }));
  QVERIFY(unit.waitUntilAbove(row(kBen), row(kAda)));
}

void SettingsTest::aDeviceIsDisconnectedAndConnected() {
  RunningHeadUnit unit;
  QVERIFY(waitForDevices(unit));
  const auto hasStatus = [&](const char* status) {
    return unit.waitFor(
        [&] { return unit.text(row(kAda) + QStringLiteral("/status")) == QLatin1String(status); });
  };
  QVERIFY(hasStatus("Calls and music"));
  QVERIFY(unit.tap(row(kAda) + QStringLiteral("/connect")));
  QVERIFY(hasStatus("Not connected"));
  QVERIFY(unit.tap(row(kAda) + QStringLiteral("/connect")));
  QVERIFY(hasStatus("Calls and music"));
}

void SettingsTest::aDeviceThatIsNotThereCannotBeConnected() {
  RunningHeadUnit unit;
  QVERIFY(waitForDevices(unit));
  QVERIFY(unit.tap(row(kBen) + QStringLiteral("/connect")));
  QVERIFY(unit.waitFor([&] {
    return unit.text(row(kBen) + QStringLiteral("/status")) == QStringLiteral("Could not connect");
  }));
}

void SettingsTest::aPairedDeviceIsDeleted() {
  RunningHeadUnit unit;
  QVERIFY(waitForDevices(unit));
  QVERIFY(unit.tap(row(kBen) + QStringLiteral("/remove")));
  QVERIFY(
      unit.waitFor([&] { return !unit.shows(row(kBen)) && unit.bt().devices()->paired()->count() == 1; }));
  QVERIFY(unit.shows(row(kAda)));
}

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
