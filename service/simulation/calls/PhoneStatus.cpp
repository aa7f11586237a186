#include "service/simulation/calls/PhoneStatus.h"

namespace btservice {

PhoneStatus::PhoneStatus(ModelContext& context, Connections& connections)
    : m_context(context), m_connections(connections) {
  connections.onChanged.Add([this](RemoteDevice&, ProfileId profile, ConnStatus) {
    if (profile == BT_PROFILE_HFP) {
      ReportAll();
    }
  });
}

void PhoneStatus::ReportAll() const {
  const RemoteDevice* const device = m_connections.Active(BT_PROFILE_HFP);
  PhoneData none;
  none.signal = 0;
  none.battery = 0;
  const PhoneData& phone = device != nullptr ? device->data.phone : none;
  m_context.Report(OperatorChanged{phone.networkOperator});
  m_context.Report(MobileServiceChanged{!phone.networkOperator.empty()});
  m_context.Report(RoamingChanged{phone.roaming});
  m_context.Report(SignalChanged{phone.signal});
  m_context.Report(BatteryChanged{phone.battery});
}

void PhoneStatus::SetSignal(RemoteDevice& device, int bars) {
  device.data.phone.signal = bars;
  if (IsInUse(device)) {
    m_context.Report(SignalChanged{bars});
  }
}

void PhoneStatus::SetBattery(RemoteDevice& device, int bars) {
  device.data.phone.battery = bars;
  if (IsInUse(device)) {
    m_context.Report(BatteryChanged{bars});
  }
}

void PhoneStatus::SetOperator(RemoteDevice& device, const std::string& name) {
  const bool hadService = !device.data.phone.networkOperator.empty();
  device.data.phone.networkOperator = name;
  if (IsInUse(device)) {
    m_context.Report(OperatorChanged{name});
    if (hadService != !name.empty()) {
      m_context.Report(MobileServiceChanged{!name.empty()});
    }
  }
}

void PhoneStatus::SetRoaming(RemoteDevice& device, bool roaming) {
  device.data.phone.roaming = roaming;
  if (IsInUse(device)) {
    m_context.Report(RoamingChanged{roaming});
  }
}

bool PhoneStatus::IsInUse(const RemoteDevice& device) const {
  return m_connections.Active(BT_PROFILE_HFP) == &device;
}

}  // namespace btservice
