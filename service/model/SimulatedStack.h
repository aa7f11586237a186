#ifndef SERVICE_MODEL_SIMULATEDSTACK_H
#define SERVICE_MODEL_SIMULATEDSTACK_H

#include "service/model/SimulatedAdapter.h"
#include "service/model/SimulatedDevices.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

/// A Bluetooth stack whose radio, phones and people are made up. The scheduler must outlive it.
class SimulatedStack : public BluetoothStack {
 public:
  SimulatedStack(Scheduler& scheduler, const World& world);

  AdapterControl& Adapter() override { return m_adapter; }
  DeviceControl& Devices() override { return m_deviceControl; }

  void AddObserver(StackObserver& observer) override { m_context.observers.push_back(&observer); }
  void Start() override;

 private:
  const World m_world;
  ModelContext m_context;
  PowerSwitch m_power;
  Settings m_settings;
  DeviceTable m_devices;
  Scanner m_scanner;
  Pairing m_pairing;
  Connections m_connections;
  Projection m_projection;

  SimulatedAdapter m_adapter;
  SimulatedDevices m_deviceControl;
};

}  // namespace btservice

#endif
