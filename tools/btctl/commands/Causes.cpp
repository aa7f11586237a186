#include "btctl/commands/Causes.h"

#include <algorithm>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include <glib.h>

#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>

#include "btctl/commands/ContactNames.h"
#include "btctl/commands/MakeRequest.h"

namespace btctl {
namespace {

using namespace MWPBtType;

constexpr std::chrono::seconds kAtMost{2};

/// The service reports addresses in upper case, however they were given to it.
std::string UpperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) { return g_ascii_toupper(c); });
  return text;
}

}  // namespace

/// What the service reports of its state, as far as it can be the cause of a refusal.
struct StateReport {
  bool hasCome = false;                                   ///< else nothing is known of what it does not hold
  std::map<std::string, std::set<std::string>> profiles;  ///< those that are connected, by address
  std::string pairing;  ///< the device that is being paired, if there is one
  bool isSearching = false;
  bool isDownloading = false;

  void Add(const Event& event) {
    if (event.Name() == "OnOpenBtStatusChanged") {
      hasCome = true;
    } else if (event.Name() == "OnConnectStatusChanged" && event.Has("status", "connected")) {
      profiles[event.Value("address").shown].insert(event.Value("profile").shown.dump());
    } else if (event.Name() == "OnPairStatusChanged") {
      pairing = event.Has("status", "pairing") ? event.Value("address").shown.get<std::string>() : "";
    } else if (event.Name() == "OnScanStatusChanged") {
      isSearching = event.Has("status", "scanning");
    } else if (event.Name() == "OnPBDownloadStatus") {
      isDownloading = event.Has("status", "connecting") || event.Has("status", "downloading");
    }
  }
};

/// The questions of the checks. All applications hear the answer to one of them, the report: it is asked for
/// once at most.
class Inquiry {
 public:
  Inquiry(Session& session, const Given& given) : m_session(session), m_given(given) {}

  std::string Argument(std::size_t place) const { return m_given[place]; }

  /// What a request answers.
  template <typename Question>
  Json Ask(Question question) {
    return MakeRequest(m_session, Value(), CallOf(question)).result;
  }

  /// The items of a list that a request fills; nothing if they are not all of them.
  template <typename Item, typename Fill, typename Count>
  std::optional<std::list<Item>> AskForAll(Fill fill, Count count) {
    const auto items = std::make_shared<std::list<Item>>();
    Ask([fill, items] { return fill(*items); });
    if (Ask(count) != items->size()) {
      return std::nullopt;
    }
    return *items;
  }

  const StateReport& AskForReport() {
    if (!m_report) {
      m_report.emplace();
      const EventHub::OwnQuestion own(m_session.Events());
      const EventHub::Subscription events(m_session.Events(),
                                          [this](const Event& event) { m_report->Add(event); });
      MakeRequest(m_session, Nothing(), CallOf([] { MWPBtCom().GetBluetoothServiceStatus(); }));
      m_session.DeliverArrived();  // the answer comes after the last event
    }
    return *m_report;
  }

 private:
  Session& m_session;
  const Given& m_given;
  std::optional<StateReport> m_report;
};

namespace {

std::optional<Cause> If(bool isTrue, const Cause& cause) {
  return isTrue ? std::optional<Cause>(cause) : std::nullopt;
}

const char kConnectHint[] = "'btctl connect ADDRESS' connects a paired device.";

/// Whether a request for a connection answers another state.
template <typename Question>
Check NothingIsConnected(const std::string& what, Question question) {
  return [=](Inquiry& inquiry) {
    return If(inquiry.Ask(question)["status"] != WordsOf<ConnStatus>().Show(BT_CONN_CONNECTED),
              {"not-connected", "no " + what + " is connected", kConnectHint});
  };
}

std::optional<Cause> NotConnected(Inquiry& inquiry, const std::string& address, const std::string& profile) {
  const StateReport& report = inquiry.AskForReport();
  const auto device = report.profiles.find(UpperCase(address));
  if (device == report.profiles.end()) {
    return If(report.hasCome, {"not-connected", address + " is not connected", kConnectHint});
  }
  const bool isPair = profile == "hfp-a2dp";
  const auto has = [&](const std::string& one) { return device->second.count(Json(one).dump()) != 0; };
  return If(!(isPair ? has("hfp") || has("a2dp") : has(profile)),
            {"not-connected", address + " is not connected with " + profile,
             "'btctl devices list' shows the profiles that are connected."});
}

}  // namespace

Check AdapterIsOff() {
  return [](Inquiry& inquiry) {
    const int status = inquiry.Ask([] { return MWPBtCom().GetPowerStatus(); });
    const Json word = WordsOf<PowerStatus>().Show(status);
    std::string text = word.is_string() ? word.get<std::string>() : "";
    std::replace(text.begin(), text.end(), '-', ' ');  // turning-off
    return If(status != BT_POWER_ON && !text.empty(),
              {"adapter-off", "the adapter is " + text, "'btctl power on' switches it on."});
  };
}

Check DeviceIsUnknown(std::size_t address) {
  return [=](Inquiry& inquiry) {
    const std::string text = inquiry.Argument(address);
    const std::string name = inquiry.Ask([text] { return MWPBtCom().GetRemotePairDeviceName(text); });
    return If(name.empty(), {"unknown-device", "it knows no device " + text,
                             "'btctl scan' searches for devices, 'btctl pair ADDRESS' pairs with one."});
  };
}

Check DeviceIsNotConnected(std::size_t address, const std::string& profile) {
  return [=](Inquiry& inquiry) { return NotConnected(inquiry, inquiry.Argument(address), profile); };
}

Check DeviceIsNotConnected(std::size_t address, std::size_t profile) {
  return [=](Inquiry& inquiry) {
    return NotConnected(inquiry, inquiry.Argument(address), inquiry.Argument(profile));
  };
}

Check NoPhoneIsConnected() {
  return NothingIsConnected("phone", [] { return MWPBtPhone().GetPhoneConnectionState(); });
}

Check NoPlayerIsConnected() {
  return NothingIsConnected("player", [] { return MWPBtMedia().GetMediaConnectionState(); });
}

Check PairingIsUnderWay() {
  return [](Inquiry& inquiry) {
    const std::string other = inquiry.AskForReport().pairing;
    return If(!other.empty(), {"pairing-under-way", "a pairing with " + other + " is under way already",
                               "'btctl wait OnPairStatusChanged' waits for its end."});
  };
}

Check NoPairingIsUnderWay(std::size_t address) {
  return [=](Inquiry& inquiry) {
    const StateReport& report = inquiry.AskForReport();
    const std::string text = inquiry.Argument(address);
    return If(report.hasCome && report.pairing != UpperCase(text),
              {"no-pairing", text + " is not being paired", "'btctl pair ADDRESS' pairs with a device."});
  };
}

Check DeviceIsPairedAlready(std::size_t address) {
  return [=](Inquiry& inquiry) {
    const std::string text = inquiry.Argument(address);
    return If(inquiry.AskForReport().profiles.count(UpperCase(text)) != 0,
              {"paired-already", text + " is paired already, and connected", ""});
  };
}

Check SearchIsRunning() {
  return [](Inquiry& inquiry) {
    return If(inquiry.AskForReport().isSearching,
              {"search-running", "a search is running already", "'btctl scan stop' ends it."});
  };
}

Check NoSearchIsRunning() {
  return [](Inquiry& inquiry) {
    const StateReport& report = inquiry.AskForReport();
    return If(report.hasCome && !report.isSearching, {"no-search", "no search is running", ""});
  };
}

Check DownloadIsUnderWay() {
  return [](Inquiry& inquiry) {
    return If(inquiry.AskForReport().isDownloading,
              {"download-under-way", "a download is under way already", "'btctl contacts stop' ends it."});
  };
}

Check NoDownloadIsUnderWay() {
  return [](Inquiry& inquiry) {
    const StateReport& report = inquiry.AskForReport();
    return If(report.hasCome && !report.isDownloading, {"no-download", "no download is under way", ""});
  };
}

Check NoCallIs(std::vector<std::string> states) {
  return [states = std::move(states)](Inquiry& inquiry) -> std::optional<Cause> {
    const auto info = std::make_shared<MWPTypeCallInfo>();
    const bool isKnown = inquiry.Ask([info] { return MWPBtPhone().GetCurrentCallInfo(*info); }) != 0;
    const Json calls = ToJson(*info);
    if (!isKnown || static_cast<int>(calls.size()) < info->nCallCount) {
      return std::nullopt;
    }
    const bool isThere = std::any_of(calls.begin(), calls.end(), [&](const Json& call) {
      return states.empty() || std::find(states.begin(), states.end(), call["status"]) != states.end();
    });
    std::string names;
    for (const std::string& state : states) {
      names += (names.empty() ? "" : " or ") + state;
    }
    return If(!isThere, {"no-call", states.empty() ? "there is no call" : "no call is " + names,
                         "'btctl call list' shows the calls."});
  };
}

Check NoContactHasId(std::size_t id) {
  return [=](Inquiry& inquiry) {
    const auto contacts = inquiry.AskForAll<MWPTypeContact>(
        [](std::list<MWPTypeContact>& all) { return MWPBtPbap().GetContactList(all); },
        [] { return MWPBtPbap().GetContactCount(); });
    const std::string text = inquiry.Argument(id);
    return If(
        contacts && std::none_of(contacts->begin(), contacts->end(),
                                 [&](const auto& one) { return std::to_string(one.nContactId) == text; }),
        {"unknown-contact", "no contact has the id " + text, "'btctl contacts list' shows them."});
  };
}

Check NoLogEntryHasId(std::size_t id) {
  return [=](Inquiry& inquiry) {
    const auto entries = inquiry.AskForAll<MWPTypeCallLog>(
        [](std::list<MWPTypeCallLog>& all) { return MWPBtPbap().GetCallLogList(CALL_LOG_ALL, all); },
        [] { return MWPBtPbap().GetCallLogCount(CALL_LOG_ALL); });
    const std::string text = inquiry.Argument(id);
    return If(entries && std::none_of(entries->begin(), entries->end(),
                                      [&](const auto& one) { return std::to_string(one.nLogId) == text; }),
              {"unknown-entry", "no call log has an entry " + text, "'btctl log all' shows them."});
  };
}

Check NotSupportedYet(const std::string& what) {
  return [=](Inquiry&) {
    return std::optional<Cause>({"not-supported", "the library does not support " + what + " yet", ""});
  };
}

Failure Explained(const Failure& refusal, Session& session, const Checks& checks, const Given& given) {
  try {
    session.Hasten(kAtMost);
    Inquiry inquiry(session, given);
    for (const Check& check : checks) {
      if (const std::optional<Cause> cause = check(inquiry)) {
        return {refusal.Code(), std::string(refusal.what()) + ": " + cause->message,
                cause->hint.empty() ? refusal.Hint() : cause->hint, cause->word};
      }
    }
  } catch (const Failure&) {
    // The refusal is what counts. Nothing is known of its cause.
  }
  return refusal;
}

}  // namespace btctl
