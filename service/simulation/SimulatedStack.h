#ifndef SERVICE_SIMULATION_SIMULATEDSTACK_H
#define SERVICE_SIMULATION_SIMULATEDSTACK_H

#include <memory>

#include "service/simulation/Outside.h"
#include "service/simulation/adapter/PowerSwitch.h"
#include "service/simulation/adapter/Settings.h"
#include "service/simulation/calls/CallAudio.h"
#include "service/simulation/calls/PhoneStatus.h"
#include "service/simulation/devices/Projection.h"
#include "service/simulation/devices/Scanner.h"
#include "service/simulation/messages/Messages.h"
#include "service/simulation/music/Browser.h"
#include "service/simulation/music/Player.h"
#include "service/simulation/phonebook/SimulatedPhoneBook.h"
#include "service/simulation/serial/SimulatedSerial.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

/// A Bluetooth stack whose radio, phones and people are made up. With the same world, and the same requests
/// at the same times, it does the same. The world is copied; the scheduler must outlive the stack, and gives
/// it its thread.
class SimulatedStack : public BluetoothStack {
 public:
  SimulatedStack(Scheduler& scheduler, const World& world);

  AdapterControl& Adapter() override { return *m_adapter; }
  DeviceControl& Devices() override { return *m_deviceControl; }
  CallControl& Calls() override { return *m_callControl; }
  MusicControl& Music() override { return *m_music; }
  PhoneBookControl& PhoneBook() override { return m_phoneBook; }
  SerialControl& Serial() override { return m_serial; }

  void Start() override;
  KeptState Kept() const override;
  void Stop() override;

  /// What can happen to it.
  Outside& FromOutside() { return m_outside; }

 private:
  /// The state of all but the adapter, by events.
  void ReportAll() const;

  const World m_world;
  ModelContext m_context;
  PowerSwitch m_power;
  Settings m_settings;
  DeviceTable m_devices;
  Scanner m_scanner;
  Pairing m_pairing;
  Connections m_connections;
  Projection m_projection;
  PhoneStatus m_phoneStatus;
  CallTable m_calls;
  CallAudio m_callAudio;
  Player m_player;
  Browser m_browser;
  Messages m_messages;

  const std::unique_ptr<AdapterControl> m_adapter;
  const std::unique_ptr<DeviceControl> m_deviceControl;
  SimulatedPhoneBook m_phoneBook;
  const std::unique_ptr<CallControl> m_callControl;
  const std::unique_ptr<MusicControl> m_music;
  SimulatedSerial m_serial;
  Outside m_outside;
};

}  // namespace btservice

#endif
