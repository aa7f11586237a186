#include "Music.h"

#include "BtService.h"
#include "Changes.h"
#include "Texts.h"

namespace btqt {
namespace {

constexpr unsigned kParts = btasync::PART_MUSIC | btasync::PART_MODES;

// The ids of the player's settings.
constexpr int kRepeat = 2;
constexpr int kShuffle = 3;

static_assert(static_cast<int>(btasync::BT_MUSIC_PAUSED) == Music::Paused &&
                  static_cast<int>(btasync::BT_MUSIC_FAST_REVERSE) == Music::FastReverse &&
                  static_cast<int>(btasync::BT_MUSIC_ERROR) == Music::Error,
              "the states have the numbers of libbtasync's");

int valueOf(const std::vector<MWPTypePlayMode>& modes, int type) {
  for (const MWPTypePlayMode& mode : modes) {
    if (mode.nType == type) {
      return mode.nValue;
    }
  }
  return 0;
}

QList<int> valuesOf(const std::vector<MWPTypePlayMode>& modes, int type) {
  QList<int> values;
  for (const MWPTypePlayMode& mode : modes) {
    if (mode.nType == type) {
      values.append(mode.nValue);
    }
  }
  return values;
}

MWPTypePlayMode toMode(int type, int value) {
  MWPTypePlayMode mode;
  mode.nType = type;
  mode.nValue = value;
  return mode;
}

}  // namespace

Music::Music(BtService& service) : Subject(service, kParts) { show(now(), kParts); }

Music::~Music() = default;

void Music::show(const btasync::State& state, unsigned /*parts*/) {
  const btasync::MusicState& music = state.music;
  Changes changes(*this);
  const bool isConnected = music.player.status == btasync::BT_CONN_CONNECTED;
  changes.set(m_player, isConnected ? toQt(music.player.address) : QString(), &Music::playerChanged);
  changes.set(m_state, static_cast<State>(music.status), &Music::stateChanged);
  changes.set(m_title, toQt(music.track.title), &Music::trackChanged);
  changes.set(m_artist, toQt(music.track.artist), &Music::trackChanged);
  changes.set(m_album, toQt(music.track.album), &Music::trackChanged);
  m_trackLength = toQt(music.track.duration).toInt();
  showLength(changes);
  changes.set(m_repeat, static_cast<Repeat>(valueOf(state.modes.current, kRepeat)), &Music::repeatChanged);
  changes.set(m_shuffle, static_cast<Shuffle>(valueOf(state.modes.current, kShuffle)),
              &Music::shuffleChanged);
  changes.set(m_repeatModes, valuesOf(state.modes.possible, kRepeat), &Music::repeatModesChanged);
  changes.set(m_shuffleModes, valuesOf(state.modes.possible, kShuffle), &Music::shuffleModesChanged);
  setFresh(changes, music.fresh && state.modes.fresh);
}

void Music::setPositionWanted(bool wanted) {
  if (wanted == isPositionWanted()) {
    return;
  }
  if (wanted) {
    m_positionMirror = std::make_unique<btasync::Mirror>(
        service(), btasync::PART_POSITION,
        [this](const btasync::State& state, unsigned) { showPosition(state.position.position); });
  } else {
    m_positionMirror.reset();
    showPosition(btasync::PlayPosition());
  }
  Q_EMIT positionWantedChanged();
}

void Music::showPosition(const btasync::PlayPosition& position) {
  Changes changes(*this);
  changes.set(m_position, position.position, &Music::positionChanged);
  m_reportedLength = position.length;
  showLength(changes);
}

void Music::showLength(Changes<Music>& changes) {
  changes.set(m_length, m_reportedLength > 0 ? m_reportedLength : m_trackLength, &Music::lengthChanged);
}

void Music::play(Operation* operation) { ask(service().Play(), operation); }

void Music::pause(Operation* operation) { ask(service().Pause(), operation); }

void Music::next(Operation* operation) { ask(service().Next(), operation); }

void Music::previous(Operation* operation) { ask(service().Previous(), operation); }

void Music::wind(Wind direction, Operation* operation) {
  switch (direction) {
    case WindForward:
      return ask(service().StartFastForward(), operation);
    case WindBackward:
      return ask(service().StartFastReverse(), operation);
    case WindStop:
      break;
  }
  ask(m_state == FastReverse ? service().StopFastReverse() : service().StopFastForward(), operation);
}

void Music::setRepeat(Repeat repeat, Operation* operation) {
  ask(service().SetPlayMode(toMode(kRepeat, repeat)), operation);
}

void Music::setShuffle(Shuffle shuffle, Operation* operation) {
  ask(service().SetPlayMode(toMode(kShuffle, shuffle)), operation);
}

}  // namespace btqt
