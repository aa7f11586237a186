// Music: the track, where it is, and the modes.

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"

class MusicTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void aTrackIsShownAndPaused();
  void theModesAreChanged();
  void withoutAPlayerItSaysSo();
};

void MusicTest::aTrackIsShownAndPaused() {
  RunningHeadUnit unit;
  unit.open(MUSIC);
  btqt::Music& music = *unit.bt().music();
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("title")) == QStringLiteral("Low Tide"); }));
  QVERIFY(unit.tap(QStringLiteral("play")));
  QVERIFY(unit.waitFor([&] { return music.state() == btqt::Music::Playing; }));
  QVERIFY(unit.waitFor([&] {
    const QString position = unit.text(QStringLiteral("position"));
    return !position.isEmpty() && position != QStringLiteral("0:00");
  }));
  QVERIFY(unit.tap(QStringLiteral("next")));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("title")) == QStringLiteral("Lantern"); }));
  QVERIFY(unit.tap(QStringLiteral("previous")));
  QVERIFY(unit.waitFor([&] { return unit.text(QStringLiteral("title")) == QStringLiteral("Low Tide"); }));
  QVERIFY(unit.tap(QStringLiteral("play")));
  QVERIFY(unit.waitFor([&] { return music.state() == btqt::Music::Paused; }));
}

void MusicTest::theModesAreChanged() {
  RunningHeadUnit unit;
  unit.open(MUSIC);
  btqt::Music& music = *unit.bt().music();
  for (const QString& mode : {QStringLiteral("repeat"), QStringLiteral("shuffle")}) {
    QVERIFY(unit.waitFor([&] { return unit.shows(mode); }));
    const QString before = unit.text(mode);
    QVERIFY(unit.tap(mode));
    QVERIFY(unit.waitFor([&] { return unit.text(mode) != before; }));
  }
  QVERIFY(music.repeat() != btqt::Music::RepeatOff && music.shuffle() != btqt::Music::ShuffleOff);
}

void MusicTest::withoutAPlayerItSaysSo() {
  RunningHeadUnit unit;
  unit.open(MUSIC);
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("title")); }));
  QVERIFY(unit.outside(QStringLiteral("SetInRange"), {kAda, false}));
  QVERIFY(unit.waitFor([&] { return unit.shows(QStringLiteral("noPlayer")); }));
  QVERIFY(!unit.shows(QStringLiteral("title")));
}

QTEST_MAIN(MusicTest)
#include "music_test.moc"
