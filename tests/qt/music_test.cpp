// The player of the phone.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;

}  // namespace

class MusicTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void musicIsShownAndControlled();
  void positionsComeOnlyWhenWanted();
};

void MusicTest::musicIsShownAndControlled() {
  Music* const music = m_bt->music();
  settle();
  QCOMPARE(music->state(), Music::Playing);
  QCOMPARE(music->title(), QStringLiteral("Low Tide"));
  QCOMPARE(music->artist(), QStringLiteral("The Estuaries"));
  QCOMPARE(music->album(), QStringLiteral("Shoreline"));
  QCOMPARE(music->length(), 167000);
  QCOMPARE(music->repeat(), Music::RepeatOff);
  QCOMPARE(music->shuffle(), Music::ShuffleAll);
  QCOMPARE(music->repeatModes(), QList<int>({1, 2, 3}));
  QCOMPARE(music->shuffleModes(), QList<int>({1, 2}));

  // Whoever hears of the title sees the artist that belongs to it.
  QString seen;
  QSignalSpy changed(music, &Music::trackChanged);
  connect(music, &Music::trackChanged, this,
          [&] { seen = music->title() + QLatin1Char('/') + music->album(); });
  MWPTypeMediaInfo track = KnownService::Track("Ebb");
  track.album = "Moon";
  m_fake->WillAnswer(&Service::GetMediaInfo, track);
  m_fake->Emit(TrackChanged{});
  settle();
  QCOMPARE(seen, QStringLiteral("Ebb/Moon"));
  QCOMPARE(changed.count(), 1);

  music->play();
  QVERIFY(asked().startsWith(QLatin1String("PlayMusic(")));
  music->pause();
  QVERIFY(asked().startsWith(QLatin1String("StopMusic(")));
  music->next();
  QVERIFY(asked().startsWith(QLatin1String("NextMusic(")));
  music->previous();
  QVERIFY(asked().startsWith(QLatin1String("PreviousMusic(")));
  music->wind(Music::WindForward);
  QVERIFY(asked().startsWith(QLatin1String("StartFastForward(")));
  music->wind(Music::WindStop);
  QVERIFY(asked().startsWith(QLatin1String("StopFastForward(")));
  music->wind(Music::WindBackward);
  QVERIFY(asked().startsWith(QLatin1String("StartFastReverse(")));
  m_fake->Emit(MusicChanged{BT_MUSIC_FAST_REVERSE});
  settle();
  music->wind(Music::WindStop);
  QVERIFY(asked().startsWith(QLatin1String("StopFastReverse(")));
  music->setRepeat(Music::RepeatAll);
  QCOMPARE(asked(), QStringLiteral("SetCurPlayMode((byte 0x02, byte 0x03),)"));
  QCOMPARE(music->repeat(), Music::RepeatOff);
  m_fake->WillAnswer(&Service::GetPlayModes, std::vector<MWPTypePlayMode>{{2, 3}, {3, 1}});
  m_fake->Emit(PlayModeChanged{});
  settle();
  QCOMPARE(music->repeat(), Music::RepeatAll);
  QCOMPARE(music->shuffle(), Music::ShuffleOff);
}

void MusicTest::positionsComeOnlyWhenWanted() {
  Music* const music = m_bt->music();
  settle();
  QVERIFY(!m_fake->IsAwaited<PositionChanged>());
  QCOMPARE(music->position(), 0);
  music->setPositionWanted(true);
  settle();
  QVERIFY(m_fake->IsAwaited<PositionChanged>());
  QCOMPARE(music->position(), 1000);
  QCOMPARE(music->length(), 180000);
  m_fake->Emit(PositionChanged{2000, 180000});
  settle();
  QCOMPARE(music->position(), 2000);
  QSignalSpy wanted(music, &Music::positionWantedChanged);
  music->setPositionWanted(false);
  QCOMPARE(wanted.count(), 1);
  QVERIFY(!m_fake->IsAwaited<PositionChanged>());
  QCOMPARE(music->position(), 0);
  QCOMPARE(music->length(), 167000);
}

QTEST_GUILESS_MAIN(MusicTest)
#include "music_test.moc"
