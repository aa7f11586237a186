// The calls, where their sound is, and the network they go over.

#include <algorithm>

#include "libbtasync/mirror/Keeper.h"
#include "libbtasync/mirror/Question.h"
#include "protocol/Records.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

CallEntry ToEntry(const MWPTypeCallSlot& slot) {
  CallEntry entry;
  entry.callId = slot.*CallFields::kId;
  entry.status = static_cast<CallStatus>(slot.*CallFields::kStatus);
  entry.incoming = slot.*CallFields::kIncoming != 0;
  entry.conference = slot.*CallFields::kConference != 0;
  entry.seconds = slot.*CallFields::kSeconds;
  entry.number = slot.*CallFields::kNumber;
  entry.name = slot.*CallFields::kName;
  entry.phone = Address(slot.*CallFields::kPhone);
  return entry;
}

class CallsPart final : public MirrorPart {
 public:
  explicit CallsPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_CALLS),
        m_calls(
            *this, [](Service& service) { return service.CurrentCalls(); },
            [this](const MWPTypeCallInfo& info) { Take(info); }) {
    On<CallStatusChanged>([this](const CallStatusChanged&) { m_calls.Ask(); });
    On<CallsChanged>([this](const CallsChanged&) { m_calls.Ask(); });
    On<CallHungUp>([this](const CallHungUp&) { m_calls.Ask(); });
    On<CallTimeChanged>([this](const CallTimeChanged& event) {
      for (CallEntry& call : Here().calls) {
        if (call.callId == event.callId) {
          Set(call.seconds, event.seconds);
        }
      }
    });
    On<CallActionChanged>([this](const CallActionChanged& event) { Allow(event.action, event.possible); });
  }

  bool NeedsReport() const override { return true; }  // what can be done with the calls
  void Ask() override { m_calls.Ask(); }
  void Reported() override {
    m_isReported = true;
    SetFreshness();
  }
  void Gone() override {
    m_calls.Forget();
    m_isReported = false;
    Take(MWPTypeCallInfo());
    Set(Here().possible, std::vector<CallAction>());
    SetFreshness();
  }
  void SetFreshness() override { Set(Here().fresh, m_isReported && m_calls.IsAnswered()); }

 private:
  CallsState& Here() { return Now().calls; }
  void Take(const MWPTypeCallInfo& info) {
    std::vector<CallEntry> calls;
    for (const MWPTypeCallSlot* const slot : {&info.callSlot1, &info.callSlot2}) {
      if (slot->*CallFields::kId != 0) {
        calls.push_back(ToEntry(*slot));
      }
    }
    Set(Here().count, info.nCallCount);
    Set(Here().calls, calls);
  }
  void Allow(CallAction action, bool possible) {
    std::vector<CallAction> actions = Here().possible;
    const auto known = std::find(actions.begin(), actions.end(), action);
    if (possible && known == actions.end()) {
      actions.push_back(action);
      std::sort(actions.begin(), actions.end());
    } else if (!possible && known != actions.end()) {
      actions.erase(known);
    }
    Set(Here().possible, actions);
  }

  Question<MWPTypeCallInfo> m_calls;
  bool m_isReported = false;
};

class AudioPart final : public MirrorPart {
 public:
  explicit AudioPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_AUDIO),
        m_privacy(
            *this, [](Service& service) { return service.GetAudioIsPrivacy(); },
            [this](bool onPhone) { Set(Here().onPhone, onPhone); }) {
    // Without a call there is no sound either: the question tells the two apart.
    On<AudioChanged>([this](const AudioChanged&) { m_privacy.Ask(); });
    On<CodecChanged>([this](const CodecChanged& event) { Set(Here().codec, event.mode); });
    On<VoiceRecognitionChanged>(
        [this](const VoiceRecognitionChanged& event) { Set(Here().voiceRecognition, event.running); });
  }

  bool NeedsReport() const override { return true; }  // the codec, voice recognition
  void Ask() override { m_privacy.Ask(); }
  void Reported() override {
    m_isReported = true;
    SetFreshness();
  }
  void Gone() override {
    m_privacy.Forget();
    m_isReported = false;
    Set(Here().voiceRecognition, false);
    Set(Here().codec, BT_CODEC_NONE);
    SetFreshness();
  }
  void SetFreshness() override { Set(Here().fresh, m_isReported && m_privacy.IsAnswered()); }

 private:
  AudioState& Here() { return Now().audio; }

  Question<bool> m_privacy;
  bool m_isReported = false;
};

class NetworkPart final : public MirrorPart {
 public:
  explicit NetworkPart(MirrorKeeper& keeper)
      : MirrorPart(keeper, PART_NETWORK),
        m_phone(
            *this, [](Service& service) { return service.GetPhoneConnectionState(); },
            [this](const ConnectionState& phone) { Take(phone); }) {
    On<NetworkChanged>([this](const NetworkChanged& event) { Set(Here().available, event.available); });
    On<OperatorChanged>([this](const OperatorChanged& event) { Set(Here().operatorName, event.name); });
    On<RoamingChanged>([this](const RoamingChanged& event) { Set(Here().roaming, event.roaming); });
    On<SignalChanged>([this](const SignalChanged& event) { Set(Here().signal, event.bars); });
    On<BatteryChanged>([this](const BatteryChanged& event) { Set(Here().battery, event.bars); });
    On<ConnectionChanged>([this](const ConnectionChanged& event) {
      if (event.profile == BT_PROFILE_HFP) {
        m_phone.Ask();
      }
    });
  }

  bool NeedsReport() const override { return true; }  // the network
  void Ask() override { m_phone.Ask(); }
  void Reported() override {
    m_isReported = true;
    SetFreshness();
  }
  void Gone() override {
    m_phone.Forget();
    m_isReported = false;
    SetFreshness();
  }
  void SetFreshness() override { Set(Here().fresh, m_isReported && m_phone.IsAnswered()); }

 private:
  NetworkState& Here() { return Now().network; }
  void Take(const ConnectionState& phone) {
    Set(Here().phone.status, phone.status);
    Set(Here().phone.address, phone.address);
    if (phone.status == BT_CONN_DISCONNECTED) {
      Set(Here().available, false);
      Set(Here().operatorName, std::string());
      Set(Here().roaming, false);
      Set(Here().signal, 0);
      Set(Here().battery, 0);
    }
  }

  Question<ConnectionState> m_phone;
  bool m_isReported = false;
};

}  // namespace

std::unique_ptr<MirrorPart> MakeCallsPart(MirrorKeeper& keeper) {
  return std::make_unique<CallsPart>(keeper);
}
std::unique_ptr<MirrorPart> MakeAudioPart(MirrorKeeper& keeper) {
  return std::make_unique<AudioPart>(keeper);
}
std::unique_ptr<MirrorPart> MakeNetworkPart(MirrorKeeper& keeper) {
  return std::make_unique<NetworkPart>(keeper);
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
