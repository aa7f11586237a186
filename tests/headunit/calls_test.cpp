// The phone: dialling, an incoming call, two calls, tones.

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"

namespace {

const QString kCaller = QStringLiteral("+49170000007");
const QString kAnotherCaller = QStringLiteral("+49170000008");

}  // namespace

class CallsTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void aNumberIsDialled();
  void aCallComesOverEverythingAndIsAccepted();
  void aCallIsRejected();
  void twoCallsAreSwappedAndJoined();
  void tonesAreSentInACall();
  void theSoundGoesToThePhoneAndBack();

 private:
  /// Somebody calls, and the call is accepted.
  static bool talk(RunningHeadUnit& unit, const QString& number);
  static bool hangUpAll(RunningHeadUnit& unit);
};

bool CallsTest::talk(RunningHeadUnit& unit, const QString& number) {
  const int before = unit.bt().calls()->count();
  return unit.outside(QStringLiteral("Call"), {kAda, number}) && unit.tap(QStringLiteral("acceptCall")) &&
         unit.waitFor([&] {
           return !unit.shows(QStringLiteral("caller")) && unit.bt().calls()->count() == before + 1;
         });
}

bool CallsTest::hangUpAll(RunningHeadUnit& unit) {
  while (unit.bt().calls()->count() > 0) {
    const int before = unit.bt().calls()->count();
    if (!unit.tap(QStringLiteral("hangUp")) ||
        !unit.waitFor([&] { return unit.bt().calls()->count() < before; })) {
      return false;
    }
  }
  return true;
}

void CallsTest::aNumberIsDialled() {
  RunningHeadUnit unit;
  QVERIFY(unit.waitForPhone());
  for (const char* const key : {"key1", "key1", "key1", "erase", "key0"}) {
    QVERIFY(unit.tap(QString::fromLatin1(key)));
  }
  QCOMPARE(unit.text(QStringLiteral("number")), QStringLiteral("110"));
  QVERIFY(unit.tap(QStringLiteral("dial")));
  QVERIFY(unit.waitFor(
      [&] { return unit.text(QStringLiteral("callState")) == QStringLiteral("Ringing there"); }));
  QVERIFY(unit.outside(QStringLiteral("AnswerCall"), {kAda}));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("callState")) == QStringLiteral("Active"); }));
  QVERIFY(hangUpAll(unit));

  QVERIFY(unit.tap(QStringLiteral("redial")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("callState")); }));
  QCOMPARE(unit.bt().calls()->model()->get(0)[QStringLiteral("number")].toString(), QStringLiteral("110"));
  QVERIFY(hangUpAll(unit));
}

void CallsTest::aCallComesOverEverythingAndIsAccepted() {
  RunningHeadUnit unit;
  unit.open(MUSIC);
  QVERIFY(unit.waitForPhone());
  QVERIFY(unit.outside(QStringLiteral("Call"), {kAda, kCaller}));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("caller")); }));
  // Nothing below it can be touched.
  QVERIFY(unit.tap(QStringLiteral("navigation3")));
  QCOMPARE(unit.window().property("page").toInt(), int{MUSIC});
  QVERIFY(unit.tap(QStringLiteral("acceptCall")));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("caller")); }));
  unit.open(PHONE);
  QVERIFY(unit.waitFor([&] {
    const QString time = unit.text(QStringLiteral("callTime"));
    return !time.isEmpty() && time != QStringLiteral("0:00");
  }));
  QVERIFY(hangUpAll(unit));
}

void CallsTest::aCallIsRejected() {
  RunningHeadUnit unit;
  QVERIFY(unit.waitForPhone());
  QVERIFY(unit.outside(QStringLiteral("Call"), {kAda, kCaller}));
  QVERIFY(unit.tap(QStringLiteral("rejectCall")));
  QVERIFY(
      unit.waitFor([&] { return !unit.shows(QStringLiteral("caller")) && unit.bt().calls()->count() == 0; }));
}

void CallsTest::twoCallsAreSwappedAndJoined() {
  RunningHeadUnit unit;
  QVERIFY(unit.waitForPhone());
  QVERIFY(talk(unit, kCaller));
  QVERIFY(!unit.wait(QStringLiteral("merge"))->isEnabled());
  QVERIFY(talk(unit, kAnotherCaller));
  const auto states = [&](const char* first, const char* second) {
    return unit.waitFor([&] {
      return unit.text(QStringLiteral("call 1/callState")) == QLatin1String(first) &&
             unit.text(QStringLiteral("call 2/callState")) == QLatin1String(second);
    });
  };
  QVERIFY(states("On hold", "Active"));
  QVERIFY(unit.tap(QStringLiteral("swap")));
  QVERIFY(states("Active", "On hold"));
  // The active one is above.
  QVERIFY(unit.waitUntilAbove(QStringLiteral("call 1"), QStringLiteral("call 2")));
  QVERIFY(unit.tap(QStringLiteral("merge")));
  QVERIFY(states("Active", "Active"));
  QVERIFY(unit.waitFor([&] {
    return unit.shows(QStringLiteral("call 1/conference")) && unit.shows(QStringLiteral("call 2/conference"));
  }));
  QVERIFY(hangUpAll(unit));
}

void CallsTest::tonesAreSentInACall() {
  RunningHeadUnit unit;
  QVERIFY(unit.waitForPhone());
  QVERIFY(talk(unit, kCaller));
  // The first tone is one that the service does not take on: so it is asked for tones.
  QVERIFY(unit.fault(QStringLiteral("FailAnswers"),
                     {QStringLiteral("SendDTMF"), 1U, QStringLiteral("org.example.Tired"), QString()}));
  QVERIFY(unit.tap(QStringLiteral("key5")));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("notice")); }));
  QVERIFY(unit.tap(QStringLiteral("key#")));
  QVERIFY(unit.waitFor([&] { return !unit.shows(QStringLiteral("notice")); }));
  QCOMPARE(unit.text(QStringLiteral("number")), QStringLiteral("5#"));
  QVERIFY(hangUpAll(unit));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("number")).isEmpty(); }));
}

void CallsTest::theSoundGoesToThePhoneAndBack() {
  RunningHeadUnit unit;
  QVERIFY(unit.waitForPhone());
  QVERIFY(talk(unit, kCaller));
  for (const bool isOnPhone : {true, false}) {
    QVERIFY(unit.tap(QStringLiteral("privacy")));
    QVERIFY(unit.waitFor([&] { return unit.bt().calls()->isPrivate() == isOnPhone; }));
    QCOMPARE(unit.text(QStringLiteral("privacy")),
             isOnPhone ? QStringLiteral("Sound to the car") : QStringLiteral("Sound to the phone"));
  }
  QVERIFY(hangUpAll(unit));
}

QTEST_MAIN(CallsTest)
#include "calls_test.moc"
