// The phone book, the favourites, the call logs, downloads, and messages.

#include "libbtasync/mirror/Keeper.h"
#include "libbtasync/mirror/Question.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr std::size_t kMostNews = 20;

/// Whether a download has brought what it will bring.
bool HasEnded(PbapStatus status) { return status == BT_PBAP_COMPLETED || status == BT_PBAP_STOPPED; }

/// A list that is asked for as a whole.
template <typename Record>
class ListPart : public MirrorPart {
 public:
  using Records = std::vector<Record>;

  ListPart(MirrorKeeper& keeper, unsigned part, typename Question<Records>::Make make, Records& records,
           bool& fresh)
      : MirrorPart(keeper, part),
        m_fresh(fresh),
        m_list(*this, std::move(make), [this, &records](Records answered) {
          records = std::move(answered);
          Note();
        }) {
    this->template On<DownloadChanged>([this](const DownloadChanged& event) {
      if (HasEnded(event.status)) {
        Ask();
      }
    });
    // The service shows the books of the phone that is connected.
    this->template On<ConnectionChanged>([this](const ConnectionChanged& event) {
      if (event.profile == BT_PROFILE_HFP || event.profile == BT_PROFILE_PBAP) {
        Ask();
      }
    });
  }

  void Ask() override { m_list.Ask(); }
  void Gone() override {
    m_list.Forget();
    SetFreshness();
  }
  void SetFreshness() override { Set(m_fresh, m_list.IsAnswered()); }

 private:
  bool& m_fresh;
  Question<Records> m_list;
};

class ContactsPart final : public ListPart<MWPTypeContact> {
 public:
  explicit ContactsPart(MirrorKeeper& keeper, State& now)
      : ListPart(
            keeper, PART_CONTACTS, [](Service& service) { return service.Contacts(); }, now.contacts.contacts,
            now.contacts.fresh) {
    On<PhoneBookDeleted>([this](const PhoneBookDeleted&) { Ask(); });
  }
};

class FavoritesPart final : public ListPart<MWPTypeContact> {
 public:
  explicit FavoritesPart(MirrorKeeper& keeper, State& now)
      : ListPart(
            keeper, PART_FAVORITES, [](Service& service) { return service.FavoriteContacts(); },
            now.favorites.contacts, now.favorites.fresh) {
    On<FavoriteChanged>([this](const FavoriteChanged&) { Ask(); });
    On<PhoneBookDeleted>([this](const PhoneBookDeleted&) { Ask(); });
  }
};

class LogsPart final : public ListPart<MWPTypeCallLog> {
 public:
  explicit LogsPart(MirrorKeeper& keeper, State& now)
      : ListPart(
            keeper, PART_LOGS, [](Service& service) { return service.CallLogs(CALL_LOG_ALL); }, now.logs.logs,
            now.logs.fresh) {
    On<CallLogsChanged>([this](const CallLogsChanged&) { Ask(); });
  }
};

class DownloadPart final : public MirrorPart {
 public:
  explicit DownloadPart(MirrorKeeper& keeper) : MirrorPart(keeper, PART_DOWNLOAD) {
    On<DownloadChanged>([this](const DownloadChanged& event) {
      if (event.status == BT_PBAP_CONNECTING) {
        Progress({0, 0});
      }
      Set(Here().status, event.status);
      Set(Here().type, event.type);
    });
    On<DownloadProgress>([this](const DownloadProgress& event) { Progress(event); });
  }

  bool NeedsReport() const override { return true; }
  void Ask() override {}
  void Reported() override { Set(Here().fresh, true); }
  void Gone() override {
    Set(Here().status, BT_PBAP_IDLE);
    Progress({0, 0});
    Set(Here().fresh, false);
  }

 private:
  DownloadState& Here() { return Now().download; }
  void Progress(const DownloadProgress& progress) {
    Set(Here().progress.current, progress.current);
    Set(Here().progress.total, progress.total);
  }
};

class MessagesPart final : public MirrorPart {
 public:
  explicit MessagesPart(MirrorKeeper& keeper) : MirrorPart(keeper, PART_MESSAGES) {
    On<MessageDownloadChanged>(
        [this](const MessageDownloadChanged& event) { Set(Here().status, event.status); });
    On<MessageDownloadProgress>([this](const MessageDownloadProgress& event) { Progress(event); });
    On<MessageChanged>([this](const MessageChanged& event) {
      std::vector<MessageChanged>& news = Here().news;
      if (news.size() == kMostNews) {
        news.erase(news.begin());
      }
      news.push_back(event);
      Note();
    });
  }

  void Ask() override { Set(Here().fresh, true); }  // there is nothing to ask
  void Gone() override {
    Set(Here().status, BT_MSG_LOAD_IDLE);
    Progress({0, 0});
    Set(Here().fresh, false);
  }

 private:
  MessagesState& Here() { return Now().messages; }
  void Progress(const MessageDownloadProgress& progress) {
    Set(Here().progress.current, progress.current);
    Set(Here().progress.total, progress.total);
  }
};

}  // namespace

std::unique_ptr<MirrorPart> MakeContactsPart(MirrorKeeper& keeper) {
  return std::make_unique<ContactsPart>(keeper, keeper.Own());
}
std::unique_ptr<MirrorPart> MakeFavoritesPart(MirrorKeeper& keeper) {
  return std::make_unique<FavoritesPart>(keeper, keeper.Own());
}
std::unique_ptr<MirrorPart> MakeLogsPart(MirrorKeeper& keeper) {
  return std::make_unique<LogsPart>(keeper, keeper.Own());
}
std::unique_ptr<MirrorPart> MakeDownloadPart(MirrorKeeper& keeper) {
  return std::make_unique<DownloadPart>(keeper);
}
std::unique_ptr<MirrorPart> MakeMessagesPart(MirrorKeeper& keeper) {
  return std::make_unique<MessagesPart>(keeper);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
