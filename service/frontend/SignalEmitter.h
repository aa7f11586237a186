#ifndef SERVICE_FRONTEND_SIGNALEMITTER_H
#define SERVICE_FRONTEND_SIGNALEMITTER_H

#include <bt_dbus.h>

#include "service/stack/StackEvents.h"

namespace btservice {

/// Sends what the stack reports as signals of the interface, on the thread of the stack, and returns at once:
/// one signal for each event, in the order of the events, to everybody on the bus. An event without a signal
/// (PairedDevicesChanged) is for other observers. Nothing is sent while the skeleton is not on the bus. Add
/// it to the stack after the Publisher, so that the segments hold what a signal makes clients read. The
/// skeleton must outlive it.
class SignalEmitter : public StackObserver {
 public:
  explicit SignalEmitter(ComZelkLinuxBluetooth* skeleton) : m_skeleton(skeleton) {}

  void OnStackEvent(const StackEvent& event) override;

 private:
  ComZelkLinuxBluetooth* m_skeleton;
};

}  // namespace btservice

#endif
