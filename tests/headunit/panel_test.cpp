// The panel beside the head unit: what a person does at the phone is seen on the screen of the car.

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"

class PanelTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void thePhoneRingsAnswersAndHangsUp();
  void thePhonePlays();
  void thePhoneLeavesTheRoomAndComesBack();
  void theBatteryRunsDown();
  void theNetworkGetsWorseGoesAndComesBack();
  void thePhoneAcceptsAPairing();
  void theServiceIsSlow();
  void theServiceHangsAndDies();

 private:
  static Wishes withPhone() {
    Wishes wishes;
    wishes.withPhone = true;
    return wishes;
  }
  /// The service suffers from it when this is done: what is asked for next comes after it.
  static bool chooseFault(RunningHeadUnit& unit, const QString& button) {
    return unit.tap(button) && unit.waitFor([&] { return unit.find(button)->property("current").toBool(); });
  }
};

void PanelTest::thePhoneRingsAnswersAndHangsUp() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  QVERIFY(unit.waitForPhone());
  QVERIFY(
      unit.waitFor([&] { return unit.text(QStringLiteral("phoneName")) == QStringLiteral("Ada's phone"); }));
  QVERIFY(unit.tap(QStringLiteral("phoneRings")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("caller")); }));
  QVERIFY(unit.tap(QStringLiteral("phoneHangsUp")));
  QVERIFY(unit.waitFor([&] { return unit.bt().calls()->count() == 0; }));

  QVERIFY(unit.tap(QStringLiteral("key1")));
  QVERIFY(unit.tap(QStringLiteral("dial")));
  QVERIFY(unit.waitFor(
      [&] { return unit.text(QStringLiteral("callState")) == QStringLiteral("Ringing there"); }));
  QVERIFY(unit.tap(QStringLiteral("phoneAnswers")));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("callState")) == QStringLiteral("Active"); }));
}

void PanelTest::thePhonePlays() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  unit.open(MUSIC);
  // The connection for the sound is first. A phone has modes to play in as soon as it can be controlled.
  QVERIFY(unit.waitFor([&] { return !unit.bt().music()->repeatModes().isEmpty(); }));
  QVERIFY(unit.tap(QStringLiteral("phonePlays")));
  QVERIFY(unit.waitFor([&] { return unit.bt().music()->state() == btqt::Music::Playing; }));
  QVERIFY(unit.tap(QStringLiteral("phonePauses")));
  QVERIFY(unit.waitFor([&] { return unit.bt().music()->state() == btqt::Music::Paused; }));
}

void PanelTest::thePhoneLeavesTheRoomAndComesBack() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  QVERIFY(unit.waitForPhone());
  QVERIFY(unit.tap(QStringLiteral("phoneLeaves")));
  QVERIFY(unit.waitFor([&] { return unit.bt().network()->phone().isEmpty(); }));
  QVERIFY(
      unit.waitFor([&] { return unit.text(QStringLiteral("phoneLeaves")) == QStringLiteral("Come back"); }));
  QCOMPARE(unit.text(QStringLiteral("phoneName")), QStringLiteral("Ada's phone"));
  QVERIFY(unit.tap(QStringLiteral("phoneLeaves")));
  QVERIFY(unit.waitForPhone());
  QVERIFY(unit.waitFor(
      [&] { return unit.text(QStringLiteral("phoneLeaves")) == QStringLiteral("Leave the room"); }));
}

void PanelTest::theBatteryRunsDown() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  QVERIFY(unit.waitForPhone());
  for (const int bars : {1, 4}) {
    QVERIFY(unit.tap(QStringLiteral("battery%1").arg(bars)));
    QVERIFY(unit.waitFor([&] { return unit.bt().network()->battery() == bars; }));
  }
}

void PanelTest::theNetworkGetsWorseGoesAndComesBack() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  QVERIFY(unit.waitForPhone());
  const btqt::Network& network = *unit.bt().network();
  for (const int bars : {1, 5}) {
    QVERIFY(unit.tap(QStringLiteral("signal%1").arg(bars)));
    QVERIFY(unit.waitFor([&] { return network.signal() == bars; }));
  }
  QVERIFY(unit.tap(QStringLiteral("networkIsForeign")));
  QVERIFY(unit.waitFor([&] { return network.isRoaming() && unit.shows(QStringLiteral("roaming")); }));
  QVERIFY(unit.tap(QStringLiteral("networkIsForeign")));
  QVERIFY(unit.waitFor([&] { return !network.isRoaming() && !unit.shows(QStringLiteral("roaming")); }));

  QVERIFY(unit.tap(QStringLiteral("networkGoes")));
  QVERIFY(unit.waitFor([&] { return !network.isAvailable(); }));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("operator")).isEmpty(); }));
  QVERIFY(unit.tap(QStringLiteral("networkGoes")));
  QVERIFY(unit.waitFor([&] { return network.isAvailable(); }));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("operator")) == QStringLiteral("Nordnetz"); }));
}

void PanelTest::thePhoneAcceptsAPairing() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  unit.open(SETTINGS);
  QVERIFY(unit.waitForPhone());
  QVERIFY(!unit.wait(QStringLiteral("phonePairs"))->isEnabled());
  QVERIFY(unit.tap(QStringLiteral("scan")));
  QVERIFY(unit.tap(QStringLiteral("found/device %1/pair").arg(kCarla)));
  QVERIFY(unit.tap(QStringLiteral("acceptPairing")));
  QVERIFY(unit.tap(QStringLiteral("phonePairs")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("paired/device ") + kCarla); }));
}

void PanelTest::theServiceIsSlow() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  QVERIFY(unit.waitForPhone());
  QVERIFY(chooseFault(unit, QStringLiteral("serviceSlow")));
  QVERIFY(unit.tap(QStringLiteral("key1")));
  QVERIFY(unit.tap(QStringLiteral("dial")));
  const QQuickItem* const dial = unit.find(QStringLiteral("dial"));
  QVERIFY(unit.waitFor([&] { return dial->property("busy").toBool(); }));
  QVERIFY(unit.waitFor([&] { return !dial->property("busy").toBool(); }));
  // It has been answered: a service that is hung would have been given up.
  QVERIFY(!unit.shows(QStringLiteral("notice")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("callState")); }));
}

void PanelTest::theServiceHangsAndDies() {
  RunningHeadUnit unit(deskWorld(), withPhone());
  QVERIFY(unit.waitForPhone());
  QVERIFY(chooseFault(unit, QStringLiteral("serviceSlow")));
  QVERIFY(chooseFault(unit, QStringLiteral("serviceHangs")));
  QVERIFY(unit.tap(QStringLiteral("key1")));
  QVERIFY(unit.tap(QStringLiteral("dial")));
  const QQuickItem* const dial = unit.find(QStringLiteral("dial"));
  QVERIFY(unit.waitFor([&] { return dial->property("busy").toBool(); }));
  // It never answers that, even after something that was asked for later: it is not slow.
  QVERIFY(chooseFault(unit, QStringLiteral("serviceSlow")));
  unit.open(SETTINGS);
  QVERIFY(unit.tap(QStringLiteral("discoverable")));
  QVERIFY(unit.waitFor([&] { return unit.bt().adapter()->isDiscoverable(); }));
  QVERIFY(
      unit.waitFor([&] { return !unit.find(QStringLiteral("discoverable"))->property("busy").toBool(); }));
  QVERIFY(dial->property("busy").toBool());
  unit.open(PHONE);
  // With the service's death it has failed.
  QVERIFY(unit.tap(QStringLiteral("serviceDies")));
  QVERIFY(unit.waitFor(
      [&] { return unit.text(QStringLiteral("notice")) == QStringLiteral("That did not work. Try again"); }));
  QVERIFY(unit.waitFor([&] { return unit.bt().availability() == btqt::BtService::Absent; }));

  unit.startService();
  QVERIFY(unit.waitForPhone());
  QVERIFY(chooseFault(unit, QStringLiteral("serviceHangs")));
  QVERIFY(chooseFault(unit, QStringLiteral("serviceAsUsual")));
  QVERIFY(unit.tap(QStringLiteral("dial")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("callState")); }));
  QVERIFY(unit.waitFor([&] { return !unit.find(QStringLiteral("dial"))->property("busy").toBool(); }));
  QVERIFY(!unit.shows(QStringLiteral("notice")));
}

QTEST_MAIN(PanelTest)
#include "panel_test.moc"
