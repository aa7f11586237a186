#include "service/simulation/calls/SimulatedCalls.h"

#include <algorithm>
#include <utility>

#include "service/simulation/calls/CallAudio.h"
#include "service/simulation/phonebook/SimulatedPhoneBook.h"

namespace btservice {
namespace {

class SimulatedCalls final : public CallControl {
 public:
  SimulatedCalls(PowerSwitch& power, Connections& connections, CallTable& calls, CallAudio& audio,
                 const SimulatedPhoneBook& phoneBook)
      : m_power(power), m_connections(connections), m_calls(calls), m_audio(audio), m_phoneBook(phoneBook) {
    m_power.onDown.Add([this] {
      m_ringing = false;
      m_previewing = false;
    });
    m_calls.onChanged.Add([this] { m_ringing = m_ringing && m_calls.Has(BT_CALL_INCOMING); });
  }

  bool Accept() override { return m_calls.Accept(); }
  bool Reject() override { return m_calls.Reject(); }
  bool HangUp() override { return m_calls.HangUp(); }
  bool Dial(const std::string& number) override { return m_calls.Dial(number); }
  bool Redial() override { return m_calls.Redial(); }
  bool Perform(CallAction action, int callId) override { return m_calls.Perform(action, callId); }
  bool SendTone(char tone) override {
    return m_calls.Has(BT_CALL_ACTIVE) && tone != '\0' &&
           std::string("0123456789*#ABCD").find(tone) != std::string::npos;
  }
  std::vector<CallInfo> Calls() const override {
    std::vector<CallInfo> infos;
    for (const auto& call : m_calls.All()) {
      CallInfo info;
      info.id = call->id;
      info.status = call->status;
      info.incoming = call->incoming;
      info.multiparty = call->multiparty;
      info.seconds = m_calls.Seconds(*call);
      info.number = call->number;
      info.name = m_phoneBook.NameOf(call->number);
      info.deviceAddress = call->device->data.address;
      infos.push_back(info);
    }
    std::stable_sort(infos.begin(), infos.end(), [](const CallInfo& left, const CallInfo& right) {
      return (left.status == BT_CALL_ACTIVE) > (right.status == BT_CALL_ACTIVE);
    });
    return infos;
  }

  bool SetPrivate(bool onPhone) override { return m_audio.SetPrivate(onPhone); }
  bool IsPrivate() const override { return m_audio.IsPrivate(); }
  void StartVoiceRecognition() override { m_audio.StartVoiceRecognition(); }
  void StopVoiceRecognition() override { m_audio.StopVoiceRecognition(); }
  std::optional<std::string> OwnNumber() const override {
    const RemoteDevice* const phone = m_connections.Active(BT_PROFILE_HFP);
    if (phone == nullptr || phone->data.phone.ownNumber.empty()) {
      return std::nullopt;
    }
    return phone->data.phone.ownNumber;
  }

  bool PlayRingtone() override {
    m_ringing = m_calls.Has(BT_CALL_INCOMING);
    return m_ringing;
  }
  bool StopRingtone() override { return std::exchange(m_ringing, false); }
  bool PlayPreview(const std::string& path) override {
    m_previewing = m_power.IsOn() && !path.empty() && path.front() == '/';
    return m_previewing;
  }
  bool StopPreview() override { return std::exchange(m_previewing, false); }

 private:
  PowerSwitch& m_power;
  Connections& m_connections;
  CallTable& m_calls;
  CallAudio& m_audio;
  const SimulatedPhoneBook& m_phoneBook;
  bool m_ringing = false;
  bool m_previewing = false;
};

}  // namespace

std::unique_ptr<CallControl> MakeSimulatedCalls(PowerSwitch& power, Connections& connections,
                                                CallTable& calls, CallAudio& audio,
                                                const SimulatedPhoneBook& phoneBook) {
  return std::make_unique<SimulatedCalls>(power, connections, calls, audio, phoneBook);
}

}  // namespace btservice
