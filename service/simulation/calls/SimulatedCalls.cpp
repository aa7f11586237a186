#include "service/simulation/calls/SimulatedCalls.h"

#include <algorithm>
#include <utility>

namespace btservice {

SimulatedCalls::SimulatedCalls(PowerSwitch& power, Connections& connections, CallTable& calls,
                               CallAudio& audio, const SimulatedPhoneBook& phoneBook)
    : m_power(power), m_connections(connections), m_calls(calls), m_audio(audio), m_phoneBook(phoneBook) {
  m_power.onDown.Add([this] {
    m_ringing = false;
    m_previewing = false;
  });
  m_calls.onChanged.Add([this] { m_ringing = m_ringing && m_calls.Has(BT_CALL_INCOMING); });
}

bool SimulatedCalls::SendTone(char tone) {
  return m_calls.Has(BT_CALL_ACTIVE) && tone != '\0' &&
         std::string("0123456789*#ABCD").find(tone) != std::string::npos;
}

std::vector<CallInfo> SimulatedCalls::Calls() const {
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

std::optional<std::string> SimulatedCalls::OwnNumber() const {
  const RemoteDevice* const phone = m_connections.Active(BT_PROFILE_HFP);
  if (phone == nullptr || phone->data.phone.ownNumber.empty()) {
    return std::nullopt;
  }
  return phone->data.phone.ownNumber;
}

bool SimulatedCalls::PlayRingtone() {
  m_ringing = m_calls.Has(BT_CALL_INCOMING);
  return m_ringing;
}

bool SimulatedCalls::StopRingtone() { return std::exchange(m_ringing, false); }

bool SimulatedCalls::PlayPreview(const std::string& path) {
  m_previewing = m_power.IsOn() && !path.empty() && path.front() == '/';
  return m_previewing;
}

bool SimulatedCalls::StopPreview() { return std::exchange(m_previewing, false); }

}  // namespace btservice
