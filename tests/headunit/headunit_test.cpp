// Walks through the screens of the head unit, off the screen. A warning of QML fails the test.

#include <QSignalSpy>
#include <QTest>

#include "RunningHeadUnit.h"
#include "VisibleTexts.h"

namespace {

enum Page { PHONE, CONTACTS, MUSIC, SETTINGS };

const char kWorld[] = "two-phones";

}  // namespace

class HeadUnitTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();

  void noTextIsCut_data();
  void noTextIsCut();
  void aCallComesOverEverythingAndIsAccepted();
  void aCallGoesFromTheScreenWithTheServiceAndTheScreenComesBack();
  void aNumberIsDialled();
  void musicIsPaused();
  void contactsAreSearched();
};

void HeadUnitTest::init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

void HeadUnitTest::noTextIsCut_data() {
  QTest::addColumn<bool>("light");
  QTest::addColumn<bool>("pseudo");
  QTest::newRow("dark") << false << false;
  QTest::newRow("light") << true << false;
  QTest::newRow("longer, Arabic letters, right to left") << false << true;
}

void HeadUnitTest::noTextIsCut() {
  QFETCH(bool, light);
  QFETCH(bool, pseudo);
  Wishes wishes;
  wishes.light = light;
  wishes.pseudo = pseudo;
  RunningHeadUnit unit(kWorld, wishes);
  for (const Page page : {PHONE, CONTACTS, MUSIC, SETTINGS}) {
    unit.open(page);
    QVERIFY(unit.waitFor([&] { return unit.bt().isFresh(); }));
    QVERIFY(unit.waitFor([&] { return page != SETTINGS || unit.bt().devices()->paired()->count() == 2; }));
    int seen = 0;
    // What was just filled is laid out in the next turn.
    QStringList faults;
    unit.waitFor([&] {
      seen = 0;
      faults = faultsOfVisibleTexts(*unit.window().contentItem(), seen);
      return faults.isEmpty() && seen > 4;
    });
    QVERIFY2(faults.isEmpty(),
             qPrintable(QStringLiteral("page %1: ").arg(page) + faults.join(QStringLiteral("; "))));
    QVERIFY2(seen > 4, "there are texts");
  }
}

void HeadUnitTest::aCallComesOverEverythingAndIsAccepted() {
  RunningHeadUnit unit(kWorld);
  unit.open(MUSIC);
  QVERIFY(unit.waitFor([&] { return unit.bt().network()->phone() != QString(); }));
  unit.phone().ring(QStringLiteral("+49170000007"));
  QVERIFY(unit.waitFor([&] { return unit.find(QStringLiteral("caller")) != nullptr; }));
  QVERIFY(unit.tap(QStringLiteral("acceptCall")));
  QVERIFY(unit.waitFor([&] { return unit.find(QStringLiteral("caller")) == nullptr; }));
  unit.open(PHONE);
  QVERIFY(unit.tap(QStringLiteral("hangUp")));
  QVERIFY(unit.waitFor([&] { return unit.bt().calls()->count() == 0; }));
}

void HeadUnitTest::aCallGoesFromTheScreenWithTheServiceAndTheScreenComesBack() {
  RunningHeadUnit unit(kWorld);
  QVERIFY(unit.waitFor([&] { return unit.bt().network()->phone() != QString(); }));
  unit.phone().ring(QStringLiteral("+49170000007"));
  QVERIFY(unit.waitFor([&] { return unit.find(QStringLiteral("caller")) != nullptr; }));
  unit.killService();
  QVERIFY(unit.waitFor([&] { return unit.find(QStringLiteral("caller")) == nullptr; }));
  QVERIFY(unit.waitFor([&] { return unit.find(QStringLiteral("availability")) != nullptr; }));
  unit.startService();
  QVERIFY(unit.waitFor(
      [&] { return unit.bt().isFresh() && unit.find(QStringLiteral("availability")) == nullptr; }));
}

void HeadUnitTest::aNumberIsDialled() {
  RunningHeadUnit unit(kWorld);
  QVERIFY(unit.waitFor([&] { return unit.bt().network()->phone() != QString(); }));
  for (const char* const key : {"key1", "key1", "key0"}) {
    QVERIFY(unit.tap(QString::fromLatin1(key)));
  }
  QCOMPARE(unit.find(QStringLiteral("number"))->property("text").toString(), QStringLiteral("110"));
  QVERIFY(unit.tap(QStringLiteral("dial")));
  QVERIFY(unit.waitFor([&] { return unit.find(QStringLiteral("callState")) != nullptr; }));
  QVERIFY(unit.tap(QStringLiteral("hangUp")));
  QVERIFY(unit.waitFor([&] { return unit.bt().calls()->count() == 0; }));
}

void HeadUnitTest::musicIsPaused() {
  RunningHeadUnit unit(kWorld);
  unit.open(MUSIC);
  QVERIFY(unit.waitFor([&] { return unit.bt().music()->state() == btqt::Music::Playing; }));
  QVERIFY(unit.tap(QStringLiteral("play")));
  QVERIFY(unit.waitFor([&] { return unit.bt().music()->state() == btqt::Music::Paused; }));
}

void HeadUnitTest::contactsAreSearched() {
  RunningHeadUnit unit(QStringLiteral("big-phonebook"));
  unit.open(CONTACTS);
  QVERIFY(unit.waitFor([&] { return unit.bt().contacts()->model()->count() == 5000; }));
  QVERIFY(unit.tap(QStringLiteral("search")));
  for (const char key : {'a', 'd', 'a'}) {
    QTest::keyClick(&unit.window(), key);
  }
  QVERIFY(unit.waitFor([&] {
    const int found = unit.bt().contacts()->model()->count();
    return found > 0 && found < 5000;
  }));
}

QTEST_MAIN(HeadUnitTest)
#include "headunit_test.moc"
