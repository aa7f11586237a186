#include "libbtasync/mirror/Keeper.h"

#include "libbtasync/mirror/Question.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

using MakePart = std::unique_ptr<MirrorPart> (*)(MirrorKeeper&);
constexpr std::pair<Part, MakePart> kParts[] = {
    {PART_ADAPTER, MakeAdapterPart},   {PART_FOUND, MakeFoundPart},       {PART_PAIRED, MakePairedPart},
    {PART_PAIRING, MakePairingPart},   {PART_CALLS, MakeCallsPart},       {PART_AUDIO, MakeAudioPart},
    {PART_NETWORK, MakeNetworkPart},   {PART_MUSIC, MakeMusicPart},       {PART_MODES, MakeModesPart},
    {PART_POSITION, MakePositionPart}, {PART_CONTACTS, MakeContactsPart}, {PART_FAVORITES, MakeFavoritesPart},
    {PART_LOGS, MakeLogsPart},         {PART_DOWNLOAD, MakeDownloadPart}, {PART_MESSAGES, MakeMessagesPart},
};

}  // namespace

State& MirrorPart::Now() { return m_keeper.m_state; }

Service& MirrorPart::Source() { return m_keeper.m_service; }

void MirrorPart::Note() { m_keeper.Note(m_part); }

MirrorKeeper::MirrorKeeper(Service& service, unsigned parts, Mirror::Changed changed)
    : m_service(service),
      m_backend(service.End()),
      m_changed(std::make_shared<Mirror::Changed>(std::move(changed))),
      m_telling(service),
      m_reportAgain(service) {
  Want(parts);
  service.OnAvailability(m_scope, [this](Availability now) { OnAvailability(now); });
}

const State& MirrorKeeper::Now() const {
  static const State nothing;
  return m_backend->IsOwnThread("the state of a mirror") ? m_state : nothing;
}

void MirrorKeeper::OnAvailability(Availability now) {
  m_state.service = now;
  Note(PART_SERVICE);
  m_report.Clear();
  m_reportAgain.Stop();
  for (const auto& part : m_parts) {
    part->Gone();
  }
  if (now != Availability::Present) {
    return;
  }
  bool needsReport = false;
  for (const auto& part : m_parts) {
    part->Ask();
    needsReport = needsReport || part->NeedsReport();
  }
  if (needsReport) {
    AskForReport();
  }
}

void MirrorKeeper::AskForReport() {
  // It is answered after the last event of the report. One that is under way may have told its first events
  // before a part was there.
  m_report.Clear();
  m_service.GetBluetoothServiceStatus().Within(kMirrorAsksWithin).Then(m_report, [this](Answer<> answer) {
    if (answer.Failed()) {
      m_reportAgain.Start(kMirrorAsksAgainAfter, [this] { AskForReport(); });
      return;
    }
    for (const auto& part : m_parts) {
      part->Reported();
    }
  });
}

void MirrorKeeper::Want(unsigned parts) {
  if (!m_backend->IsOwnThread("parts of a mirror") || !m_backend->IsOpen()) {
    return;
  }
  const bool isThere = m_state.service == Availability::Present;
  for (const auto& [part, make] : kParts) {
    if ((parts & part) == 0 || (m_wantedParts & part) != 0) {
      continue;
    }
    m_wantedParts |= part;
    m_parts.push_back(make(*this));
    if (isThere) {
      m_parts.back()->Ask();
      if (m_parts.back()->NeedsReport()) {
        m_reportAgain.Start(std::chrono::milliseconds(0), [this] { AskForReport(); });
      }
    }
  }
}

void MirrorKeeper::Refresh(unsigned parts) {
  if (!m_backend->IsOwnThread("parts of a mirror") || m_state.service != Availability::Present ||
      !m_backend->IsOpen()) {
    return;
  }
  for (const auto& part : m_parts) {
    if ((parts & part->m_part) != 0) {
      part->Ask();
    }
  }
}

void MirrorKeeper::Note(unsigned parts) {
  m_changedParts |= parts;
  if (!m_telling.IsRunning()) {
    m_telling.Start(std::chrono::milliseconds(0), [this] {
      const std::shared_ptr<Mirror::Changed> changed = m_changed;
      (*changed)(m_state, std::exchange(m_changedParts, 0U));
    });
  }
}

}  // namespace detail

Mirror::Mirror(Service& service, unsigned parts, Changed changed)
    : m_keeper(std::make_unique<detail::MirrorKeeper>(service, parts, std::move(changed))) {}

Mirror::~Mirror() = default;

const State& Mirror::Now() const { return m_keeper->Now(); }

void Mirror::Want(unsigned parts) { m_keeper->Want(parts); }

void Mirror::Refresh(unsigned parts) { m_keeper->Refresh(parts); }

}  // namespace v0
}  // namespace btasync
