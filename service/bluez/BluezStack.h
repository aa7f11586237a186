#ifndef SERVICE_BLUEZ_BLUEZSTACK_H
#define SERVICE_BLUEZ_BLUEZSTACK_H

#include <memory>

#include "service/bluez/BluezSerial.h"
#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/Attributes.h"
#include "service/bluez/adapter/Capabilities.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/bluez/adapter/Power.h"
#include "service/bluez/bus/CommandQueue.h"
#include "service/bluez/bus/Daemon.h"
#include "service/bluez/bus/ObjectMirror.h"
#include "service/bluez/bus/SystemBus.h"
#include "service/bluez/devices/FoundDevices.h"
#include "service/bluez/devices/Search.h"
#include "service/stack/BluetoothStack.h"

namespace btservice::bluez {

/// A Bluetooth stack over BlueZ's daemon on the system bus. All requests are answered at once from what the
/// mirror of the daemon's objects shows; orders go through a queue for each object, and events say what has
/// become of them. Bus, daemon and adapter may be absent, come, and go at any time: then the adapter is off,
/// and what needs one is refused. The scheduler must outlive the stack, and gives it its thread: that of the
/// main loop, which nothing here blocks.
class BluezStack : public BluetoothStack {
 public:
  BluezStack(Scheduler& scheduler, const StackStart& start);

  AdapterControl& Adapter() override { return *m_adapterControl; }
  DeviceControl& Devices() override { return *m_deviceControl; }
  SerialControl& Serial() override { return m_serial; }

  void Start() override;
  void Stop() override;
  KeptState Kept() const override;

 private:
  StackContext m_context;
  const std::vector<KeptDevice> m_keptPaired;

  SystemBus m_bus;
  Daemon m_daemon;
  CommandQueue m_commands;
  ObjectMirror m_mirror;
  CurrentAdapter m_adapter;

  Power m_power;
  Attributes m_attributes;
  Capabilities m_capabilities;
  FoundDevices m_found;
  Search m_search;

  const std::unique_ptr<AdapterControl> m_adapterControl;
  const std::unique_ptr<DeviceControl> m_deviceControl;
  BluezSerial m_serial;
};

}  // namespace btservice::bluez

#endif
