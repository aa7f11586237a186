#include "service/simulation/serial/SimulatedSerial.h"

#include <cctype>

namespace btservice {
namespace {

bool IsUuid(const std::string& text) {
  static const std::string pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
  if (text.size() != pattern.size()) {
    return false;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isRight =
        pattern[i] == '-' ? text[i] == '-' : std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
    if (!isRight) {
      return false;
    }
  }
  return true;
}

Bytes Reply(const SerialData& serial, const Bytes& data) {
  const auto entry = serial.script.find(std::string(data.begin(), data.end()));
  return entry != serial.script.end() ? Bytes(entry->second.begin(), entry->second.end()) : data;
}

}  // namespace

SimulatedSerial::SimulatedSerial(ModelContext& context, PowerSwitch& power, DeviceTable& devices,
                                 Connections& connections)
    : m_context(context), m_power(power), m_devices(devices), m_tasks(context.scheduler) {
  connections.onChanged.Add([this](RemoteDevice& device, ProfileId profile, ConnStatus status) {
    ReportConnection(device, profile, status);
  });
}

void SimulatedSerial::ReportConnection(RemoteDevice& device, ProfileId profile, ConnStatus status) {
  if (profile == BT_PROFILE_SPP) {
    m_context.Report(
        SerialChannelChanged{device.data.address, device.data.support, status == BT_CONN_CONNECTED});
  } else if (profile == BT_PROFILE_HID) {
    m_context.Report(HidConnectionChanged{device.data.address, status});
  }
}

RemoteDevice* SimulatedSerial::FindConnected(const std::string& address, ProfileId profile) const {
  RemoteDevice* const device = m_devices.Find(address);
  return device != nullptr && device->IsConnected(profile) ? device : nullptr;
}

bool SimulatedSerial::OfferService(const std::string& uuid) { return m_power.IsOn() && IsUuid(uuid); }

bool SimulatedSerial::Send(const std::string& address, const Bytes& data) {
  RemoteDevice* const device = FindConnected(address, BT_PROFILE_SPP);
  if (device == nullptr) {
    return false;
  }
  m_tasks.After(m_context.delays.serialReply,
                [this, device, reply = Reply(device->data.serial, data)] { SendFromRemote(*device, reply); });
  return true;
}

bool SimulatedSerial::SendFromRemote(RemoteDevice& device, const Bytes& data) {
  if (!device.IsConnected(BT_PROFILE_SPP)) {
    return false;
  }
  m_context.Report(SerialDataArrived{device.data.address, data});
  return true;
}

bool SimulatedSerial::CalibrateHid(const std::string& address, HIDTYPE type) {
  RemoteDevice* const device = FindConnected(address, BT_PROFILE_HID);
  if (device == nullptr) {
    return false;
  }
  m_tasks.After(m_context.delays.hidCalibration, [this, device, type] {
    // Keys have nothing to calibrate.
    const bool success = type != BT_HID_KEY && device->IsConnected(BT_PROFILE_HID);
    m_context.Report(HidCalibrated{success});
  });
  return true;
}

bool SimulatedSerial::SendHidPosition(const std::string& address, HIDTYPE type, int, int, int) {
  return type != BT_HID_KEY && FindConnected(address, BT_PROFILE_HID) != nullptr;
}

bool SimulatedSerial::SendHidKey(const std::string& address, int) {
  return FindConnected(address, BT_PROFILE_HID) != nullptr;
}

}  // namespace btservice
