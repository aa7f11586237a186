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
/// or one on real hardware.
///
/// A request returns at once: true if the stack takes it on, false if it cannot in the state it is in, or if
/// an argument makes no sense. What comes of it takes time, can fail, and is reported as events. A stack
/// lives on one thread. It knows nothing of the bus or of the segments.
class BluetoothStack {
 public:
  virtual ~BluetoothStack() = default;

  virtual AdapterControl& Adapter() = 0;
  virtual DeviceControl& Devices() = 0;
  virtual CallControl& Calls() = 0;
  virtual MusicControl& Music() = 0;
  virtual PhoneBookControl& PhoneBook() = 0;
  virtual SerialControl& Serial() = 0;

  /// Observers are called in the order in which they were added, and must outlive the stack.
  virtual void AddObserver(StackObserver& observer) = 0;
  /// Begins to live: powers up if the settings say so.
  virtual void Start() = 0;
  /// What is to be kept over a restart, as it is now.
  virtual KeptState Kept() const = 0;
  /// Ends, at once: lets go of all calls and connections, and reports that before it returns.
  virtual void Stop() = 0;
};

}  // namespace btservice

#endif
