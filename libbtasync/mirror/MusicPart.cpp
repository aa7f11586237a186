// Music: what plays, how, and where in the track.

#include "libbtasync/mirror/Keeper.h"
#include "libbtasync/mirror/Question.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr std::chrono::seconds kPositionInterval{1};

class MusicPart final : public MirrorPart {
 public:
  explicit MusicPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_MUSIC),
        m_player(
            Source(), [](Service& service) { return service.GetMediaConnectionState(); },
            [this](const ConnectionState& player) {
              Set(Here().player.status, player.status);
              Set(Here().player.address, player.address);
              SetFreshness();
            }),
        m_status(
            Source(), [](Service& service) { return service.GetMusicPlayStatus(); },
            [this](MusicPlayStatus status) {
              Set(Here().status, status);
              SetFreshness();
            }),
        m_track(
            Source(), [](Service& service) { return service.GetMediaInfo(); },
            [this](MWPTypeMediaInfo track) {
              Here().track = std::move(track);
              Note();
              SetFreshness();
            }) {
    On<MusicChanged>([this](const MusicChanged& event) { Set(Here().status, event.status); });
    On<TrackChanged>([this](const TrackChanged&) { m_track.Ask(); });
    On<MediaInfoChanged>([this](const MediaInfoChanged&) { m_track.Ask(); });
    On<PlayerChanged>([this](const PlayerChanged&) { m_track.Ask(); });
    On<ConnectionChanged>([this](const ConnectionChanged& event) {
      if (event.profile == BT_PROFILE_A2DP || event.profile == BT_PROFILE_AVRCP) {
        Ask();
      }
    });
  }

  void Ask() override {
    m_player.Ask();
    m_status.Ask();
    m_track.Ask();
  }
  void Gone() override {
    m_player.Forget();
    m_status.Forget();
    m_track.Forget();
    SetFreshness();
  }

 private:
  MusicState& Here() { return Now().music; }
  void SetFreshness() {
    Set(Here().fresh, m_player.IsAnswered() && m_status.IsAnswered() && m_track.IsAnswered());
  }

  Question<ConnectionState> m_player;
  Question<MusicPlayStatus> m_status;
  Question<MWPTypeMediaInfo> m_track;
};

class ModesPart final : public MirrorPart {
 public:
  using Modes = std::vector<MWPTypePlayMode>;

  explicit ModesPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_MODES),
        m_current(
            Source(), [](Service& service) { return service.GetPlayModes(); },
            [this](Modes modes) { Take(Now().modes.current, std::move(modes)); }),
        m_possible(
            Source(), [](Service& service) { return service.GetSupportedPlayModes(); },
            [this](Modes modes) { Take(Now().modes.possible, std::move(modes)); }) {
    On<PlayModeChanged>([this](const PlayModeChanged&) { m_current.Ask(); });
    On<SupportedPlayModeChanged>([this](const SupportedPlayModeChanged&) { m_possible.Ask(); });
    On<PlayerChanged>([this](const PlayerChanged&) { Ask(); });
    On<ConnectionChanged>([this](const ConnectionChanged& event) {
      if (event.profile == BT_PROFILE_A2DP || event.profile == BT_PROFILE_AVRCP) {
        Ask();
      }
    });
  }

  void Ask() override {
    m_current.Ask();
    m_possible.Ask();
  }
  void Gone() override {
    m_current.Forget();
    m_possible.Forget();
    Set(Now().modes.fresh, false);
  }

 private:
  void Take(Modes& modes, Modes to) {
    modes = std::move(to);
    Now().modes.fresh = m_current.IsAnswered() && m_possible.IsAnswered();
    Note();
  }

  Question<Modes> m_current;
  Question<Modes> m_possible;
};

class PositionPart final : public MirrorPart {
 public:
  explicit PositionPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_POSITION),
        m_report(
            Source(), [](Service& service) { return service.ReportPosition(true, kPositionInterval); },
            [this](Accepted) { SetFreshness(); }),
        m_position(
            Source(), [](Service& service) { return service.GetPlayPosition(); },
            [this](const PlayPosition& position) {
              Take(position);
              SetFreshness();
            }) {
    On<PositionChanged>([this](const PositionChanged& event) { Take({event.position, event.length}); });
    On<TrackChanged>([this](const TrackChanged&) { m_position.Ask(); });
  }

  void Ask() override {
    m_report.Ask();
    m_position.Ask();
  }
  void Gone() override {
    m_report.Forget();
    m_position.Forget();
    Set(Now().position.fresh, false);
  }

 private:
  void Take(const PlayPosition& position) {
    Set(Now().position.position.position, position.position);
    Set(Now().position.position.length, position.length);
  }

  /// A position that is not reported is out of date a second later.
  void SetFreshness() { Set(Now().position.fresh, m_report.IsAnswered() && m_position.IsAnswered()); }

  Question<Accepted> m_report;
  Question<PlayPosition> m_position;
};

}  // namespace

std::unique_ptr<MirrorPart> MakeMusicPart(MirrorKeeper& keeper) {
  return std::make_unique<MusicPart>(keeper);
}
std::unique_ptr<MirrorPart> MakeModesPart(MirrorKeeper& keeper) {
  return std::make_unique<ModesPart>(keeper);
}
std::unique_ptr<MirrorPart> MakePositionPart(MirrorKeeper& keeper) {
  return std::make_unique<PositionPart>(keeper);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
