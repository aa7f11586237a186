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
            *this, [](Service& service) { return service.GetMediaConnectionState(); },
            [this](const ConnectionState& player) {
              Set(Here().player.status, player.status);
              Set(Here().player.address, player.address);
            }),
        m_status(
            *this, [](Service& service) { return service.GetMusicPlayStatus(); },
            [this](MusicPlayStatus status) { Set(Here().status, status); }),
        m_track(
            *this, [](Service& service) { return service.GetMediaInfo(); },
            [this](MWPTypeMediaInfo track) {
              Here().track = std::move(track);
              Note();
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
  void SetFreshness() override {
    Set(Here().fresh, m_player.IsAnswered() && m_status.IsAnswered() && m_track.IsAnswered());
  }

 private:
  MusicState& Here() { return Now().music; }

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
            *this, [](Service& service) { return service.GetPlayModes(); },
            [this](Modes modes) { Take(Now().modes.current, std::move(modes)); }),
        m_possible(
            *this, [](Service& service) { return service.GetSupportedPlayModes(); },
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
    SetFreshness();
  }
  void SetFreshness() override { Set(Now().modes.fresh, m_current.IsAnswered() && m_possible.IsAnswered()); }

 private:
  void Take(Modes& modes, Modes to) {
    modes = std::move(to);
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
            *this, [](Service& service) { return service.ReportPosition(true, kPositionInterval); },
            [](Accepted) {}),
        m_position(
            *this, [](Service& service) { return service.GetPlayPosition(); },
            [this](const PlayPosition& position) { Take(position); }) {
    On<PositionChanged>([this](const PositionChanged& event) { Take({event.position, event.length}); });
    On<TrackChanged>([this](const TrackChanged&) {
      m_position.Ask();
      if (m_report.IsRefused()) {
        m_report.Ask();  // there is a player now
      }
    });
  }

  void Ask() override {
    m_report.Ask();
    m_position.Ask();
  }
  void Gone() override {
    m_report.Forget();
    m_position.Forget();
    SetFreshness();
  }
  /// A position that is not reported is out of date a second later.
  void SetFreshness() override {
    Set(Now().position.fresh, m_report.IsAnswered() && !m_report.IsRefused() && m_position.IsAnswered());
  }

 private:
  void Take(const PlayPosition& position) {
    Set(Now().position.position.position, position.position);
    Set(Now().position.position.length, position.length);
  }

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
