#ifndef SERVICE_STACK_BLUETOOTHSTACK_H
#define SERVICE_STACK_BLUETOOTHSTACK_H

#include "service/stack/AdapterControl.h"
#include "service/stack/CallControl.h"
#include "service/stack/DeviceControl.h"
#include "service/stack/MusicControl.h"
#include "service/stack/PhoneBookControl.h"
#include "service/stack/SerialControl.h"
#include "service/stack/StackEvents.h"
#include "service/stack/StackStart.h"

namespace btservice {

/// The seam between the service (bus, segments, settings) and whatever drives Bluetooth: the simulated stack,
/// or one on real hardware. A stack knows nothing of the bus on which applications ask, nor of the segments.
///
/// **Requests** return at once: true if the stack takes it on, false if it cannot in the state it is in, or
/// if an argument makes no sense. What comes of it takes time, can fail, and is reported as events, also
/// while the request has not returned yet. Where a request was taken on, could not be carried out, and there
/// is no event that says so (a name that is not taken, for example), the log does. A request must neither
/// block nor throw, whatever its arguments: they are what an application has sent. Questions are answered
/// from what the stack knows, and report nothing.
///
/// **What is not overridden is refused**: false, 0, or empty. So a stack begins with the few requests that it
/// can take, and grows.
///
/// **Threads**: a stack lives on one, that of the main loop. All requests come and all events go there.
class BluetoothStack {
 public:
  virtual ~BluetoothStack() = default;

  // The requests by subject. What is returned lives as long as the stack.

  virtual AdapterControl& Adapter() { return m_noAdapter; }
  virtual DeviceControl& Devices() { return m_noDevices; }
  virtual CallControl& Calls() { return m_noCalls; }
  virtual MusicControl& Music() { return m_noMusic; }
  virtual PhoneBookControl& PhoneBook() { return m_noPhoneBook; }
  virtual SerialControl& Serial() { return m_noSerial; }

  /// Observers are called in the order in which they were added, and must outlive the stack.
  void AddObserver(StackObserver& observer) { m_observers.Add(observer); }

  /// Begins to live: powers up if the settings say so, and otherwise reports that the adapter is off. Called
  /// once, by the service, when everybody listens.
  virtual void Start() = 0;
  /// Ends, at once: lets go of all calls and connections, and reports that before it returns. Called once,
  /// and nothing after it.
  virtual void Stop() = 0;
  /// What is to be kept over a restart, as it is now.
  virtual KeptState Kept() const { return {}; }

 protected:
  /// For the parts of the stack that report.
  const StackObservers& Observers() const { return m_observers; }

 private:
  StackObservers m_observers;
  AdapterControl m_noAdapter;
  DeviceControl m_noDevices;
  CallControl m_noCalls;
  MusicControl m_noMusic;
  PhoneBookControl m_noPhoneBook;
  SerialControl m_noSerial;
};

}  // namespace btservice

#endif
