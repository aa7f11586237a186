#ifndef LIBBTASYNC_MIRROR_KEEPER_H
#define LIBBTASYNC_MIRROR_KEEPER_H

#include <memory>
#include <utility>
#include <vector>

#include <btasync/Mirror.h>

#include "libbtasync/Backend.h"

namespace btasync {
inline namespace v0 {
namespace detail {

class MirrorKeeper;

/// One part of a mirror's state. It subscribes its events when it is made, and belongs to a keeper.
class MirrorPart {
 public:
  MirrorPart(MirrorKeeper& keeper, unsigned part) : m_keeper(keeper), m_part(part) {}
  MirrorPart(const MirrorPart&) = delete;
  MirrorPart& operator=(const MirrorPart&) = delete;
  virtual ~MirrorPart() = default;

  /// Whether some of it is in no answer, so that the service has to be asked for a report.
  virtual bool NeedsReport() const { return false; }
  /// The service has come: what was known of it is void. Asks what can be asked.
  virtual void Ask() = 0;
  /// The service's report is complete.
  virtual void Reported() {}
  /// The service has gone. Nothing that was asked is answered any more.
  virtual void Gone() = 0;
  /// A question of it was answered, or has failed.
  virtual void SetFreshness() {}
  /// The service that it asks.
  Service& Source();

 protected:
  State& Now();
  /// Subscribes an event of this part.
  template <typename Event, typename Function>
  void On(Function function);
  /// Says that the part has changed.
  void Note();
  /// Sets a value, and says so if it is another.
  template <typename Value>
  void Set(Value& value, const Value& to) {
    if (!(value == to)) {
      value = to;
      Note();
    }
  }

 private:
  friend class MirrorKeeper;
  MirrorKeeper& m_keeper;
  unsigned m_part;
};

/// What is behind a Mirror: the state, and who is responsible for which part.
class MirrorKeeper {
 public:
  MirrorKeeper(Service& service, unsigned parts, Mirror::Changed changed);

  /// Of another thread than the loop's: a state of nothing.
  const State& Now() const;
  /// For the parts.
  State& Own() { return m_state; }
  void Want(unsigned parts);
  void Refresh(unsigned parts);

 private:
  friend class MirrorPart;

  void OnAvailability(Availability now);
  void AskForReport();
  void Note(unsigned parts);

  Service& m_service;
  BackendRef m_backend;
  /// Shared with the call of it, which may destroy the mirror.
  std::shared_ptr<Mirror::Changed> m_changed;
  State m_state;
  unsigned m_changedParts = 0;
  unsigned m_wantedParts = 0;
  std::vector<std::unique_ptr<MirrorPart>> m_parts;
  Timer m_telling;
  Timer m_reportAgain;
  Scope m_report;
  Scope m_scope;
};

template <typename Event, typename Function>
void MirrorPart::On(Function function) {
  m_keeper.m_service.On<Event>(m_keeper.m_scope, std::move(function));
}

// The parts, each with its file.
std::unique_ptr<MirrorPart> MakeAdapterPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeFoundPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakePairedPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakePairingPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeCallsPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeAudioPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeNetworkPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeMusicPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeModesPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakePositionPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeContactsPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeFavoritesPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeLogsPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeDownloadPart(MirrorKeeper& keeper);
std::unique_ptr<MirrorPart> MakeMessagesPart(MirrorKeeper& keeper);

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
