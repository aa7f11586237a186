#ifndef SERVICE_APP_CALLINTAKE_H
#define SERVICE_APP_CALLINTAKE_H

#include <memory>

#include "glib/OwnedBus.h"
#include "service/app/SendQueue.h"

namespace btservice {

/// Takes no more calls from the bus than the process keeps up with. GLib reads on a thread of its own, and
/// keeps in memory what the main loop has not got to yet, and answers that the bus does not take: without a
/// limit. So that thread is held up while there is too much of either. The bus then keeps the calls, and has
/// limits for each client.
///
/// That thread also writes. That is no loss: it is held up for the main loop, which needs nothing of it to go
/// on, or while nothing can be written.
class CallIntake {
 public:
  /// The calls of this connection are answered on the thread of the default main context.
  CallIntake(GDBusConnection* connection, const SendQueue& queue);
  /// Nothing is held up any more.
  ~CallIntake();
  CallIntake(const CallIntake&) = delete;
  CallIntake& operator=(const CallIntake&) = delete;

 private:
  class Gate;
  static GDBusMessage* OnMessage(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                 gpointer gate);

  /// GLib's worker uses it, perhaps once more while this is destroyed.
  std::shared_ptr<Gate> m_gate;
  OwnedFilter m_filter;
};

}  // namespace btservice

#endif
