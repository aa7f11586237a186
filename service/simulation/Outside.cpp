#include "service/simulation/Outside.h"

#include <utility>

#include "service/phonebook/PhoneBookStore.h"

namespace btservice {
namespace {

constexpr int kMostBars = 5;

bool IsBars(int bars) { return bars >= 0 && bars <= kMostBars; }

}  // namespace

Outside::Outside(DeviceTable& devices, Connections& connections, Pairing& pairing, Projection& projection,
                 PhoneStatus& phoneStatus, CallTable& calls, Player& player, Messages& messages,
                 SimulatedSerial& serial)
    : m_devices(devices),
      m_connections(connections),
      m_pairing(pairing),
      m_projection(projection),
      m_phoneStatus(phoneStatus),
      m_calls(calls),
      m_player(player),
      m_messages(messages),
      m_serial(serial) {}

template <typename Action>
bool Outside::With(const std::string& address, Action action) const {
  RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr && action(*device);
}

std::vector<Outside::Glimpse> Outside::Devices() const {
  std::vector<Glimpse> devices;
  for (const auto& device : m_devices.All()) {
    devices.push_back(
        {device->data.address, device->data.name, device->inRange, device->paired, device->IsConnected()});
  }
  return devices;
}

std::size_t Outside::ContactCount() const {
  std::size_t count = 0;
  for (const auto& device : m_devices.All()) {
    count += device->data.phone.contacts.size() + device->data.phone.simContacts.size();
  }
  return count;
}

std::size_t Outside::ReplaceableContactCount(const std::string& address) const {
  const RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr ? device->data.phone.contacts.size() : 0;
}

bool Outside::AddDevice(const DeviceData& data) { return m_devices.Add(data) != nullptr; }

bool Outside::SetInRange(const std::string& address, bool inRange) {
  return With(address, [&](RemoteDevice& device) {
    device.inRange = inRange;
    if (inRange) {
      m_connections.Arrive(device);
    } else {
      m_pairing.DeviceLost(device);
      m_connections.LoseLink(device);
    }
    return true;
  });
}

bool Outside::LoseLink(const std::string& address) {
  return With(address, [&](RemoteDevice& device) {
    const bool wasConnected = device.IsConnected();
    m_connections.LoseLink(device);
    return wasConnected;
  });
}

bool Outside::RequestPairing(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_pairing.StartFromRemote(device); });
}

bool Outside::AcceptPairing(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_pairing.AcceptFromRemote(device); });
}

bool Outside::RejectPairing(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_pairing.RejectFromRemote(device); });
}

bool Outside::RequestConnection(const std::string& address, ProfileId profile) {
  return With(address,
              [&](RemoteDevice& device) { return m_connections.ConnectFromRemote(device, profile); });
}

bool Outside::RequestDisconnection(const std::string& address, ProfileId profile) {
  return With(address, [&](RemoteDevice& device) { return m_connections.Disconnect(device, profile); });
}

bool Outside::RequestProjection(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_projection.RequestFromRemote(device); });
}

bool Outside::SetSignal(const std::string& address, int bars) {
  return IsBars(bars) && With(address, [&](RemoteDevice& device) {
           m_phoneStatus.SetSignal(device, bars);
           return true;
         });
}

bool Outside::SetBattery(const std::string& address, int bars) {
  return IsBars(bars) && With(address, [&](RemoteDevice& device) {
           m_phoneStatus.SetBattery(device, bars);
           return true;
         });
}

bool Outside::SetOperator(const std::string& address, const std::string& name) {
  return With(address, [&](RemoteDevice& device) {
    m_phoneStatus.SetOperator(device, name);
    return true;
  });
}

bool Outside::SetRoaming(const std::string& address, bool roaming) {
  return With(address, [&](RemoteDevice& device) {
    m_phoneStatus.SetRoaming(device, roaming);
    return true;
  });
}

bool Outside::Call(const std::string& address, const std::string& number) {
  return With(address, [&](RemoteDevice& device) { return m_calls.ComeIn(device, number); });
}

bool Outside::AnswerCall(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_calls.AnswerThere(device); });
}

bool Outside::HangUp(const std::string& address, int callId) {
  return With(address, [&](RemoteDevice& device) { return m_calls.EndThere(device, callId); });
}

bool Outside::SetCalledParty(const std::string& address, CalledParty party, Milliseconds answersAfter) {
  return With(address, [&](RemoteDevice& device) {
    device.data.phone.calledParty = party;
    device.data.phone.answersAfter = answersAfter;
    return true;
  });
}

bool Outside::SetContacts(const std::string& address, std::vector<Contact> contacts) {
  return With(address, [&](RemoteDevice& device) {
    device.data.phone.contacts = std::move(contacts);
    return true;
  });
}

bool Outside::AddCallLog(const std::string& address, const CallLogEntry& entry) {
  return With(address, [&](RemoteDevice& device) {
    device.data.phone.callLogs.push_back(entry);
    KeepLatest(device.data.phone.callLogs);
    return true;
  });
}

bool Outside::SetTracks(const std::string& address, std::vector<TrackData> tracks) {
  return With(address, [&](RemoteDevice& device) {
    m_player.SetTracksFromRemote(device, std::move(tracks));
    return true;
  });
}

bool Outside::Play(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_player.PlayFromRemote(device); });
}

bool Outside::Pause(const std::string& address) {
  return With(address, [&](RemoteDevice& device) { return m_player.PauseFromRemote(device); });
}

bool Outside::SendMessage(const std::string& address, const MessageData& message) {
  return With(address, [&](RemoteDevice& device) { return m_messages.Arrive(device, message); });
}

bool Outside::ChangeMessage(const std::string& address, const std::string& handle, MsgStatus status) {
  return With(address, [&](RemoteDevice& device) { return m_messages.Happen(device, handle, status); });
}

bool Outside::SetMessageProperty(const std::string& address, const std::string& handle, bool success) {
  return With(address, [&](RemoteDevice& device) { return m_messages.SetProperty(device, handle, success); });
}

bool Outside::SendSerial(const std::string& address, const Bytes& data) {
  return With(address, [&](RemoteDevice& device) { return m_serial.SendFromRemote(device, data); });
}

}  // namespace btservice
