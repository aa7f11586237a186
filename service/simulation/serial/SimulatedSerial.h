#ifndef SERVICE_SIMULATION_SERIAL_SIMULATEDSERIAL_H
#define SERVICE_SIMULATION_SERIAL_SIMULATEDSERIAL_H

#include <string>

#include "service/simulation/devices/Connections.h"
#include "service/stack/SerialControl.h"

namespace btservice {

/// Serial channels whose other end follows a script or sends everything back, and input that phones take.
class SimulatedSerial : public SerialControl {
 public:
  SimulatedSerial(ModelContext& context, PowerSwitch& power, DeviceTable& devices, Connections& connections);

  bool OfferService(const std::string& uuid) override;
  bool Send(const std::string& address, const Bytes& data) override;

  bool CalibrateHid(const std::string& address, HIDTYPE type) override;
  bool SendHidPosition(const std::string& address, HIDTYPE type, int x, int y, int buttons) override;
  bool SendHidKey(const std::string& address, int key) override;

  /// The device sends by itself: SerialDataArrived, before it returns. False if it has no serial channel.
  bool SendFromRemote(RemoteDevice& device, const Bytes& data);

 private:
  RemoteDevice* FindConnected(const std::string& address, ProfileId profile) const;
  void ReportConnection(RemoteDevice& device, ProfileId profile, ConnStatus status);

  ModelContext& m_context;
  PowerSwitch& m_power;
  DeviceTable& m_devices;
  TaskGroup m_tasks;
};

}  // namespace btservice

#endif
