#ifndef SERVICE_APP_SERVICE_H
#define SERVICE_APP_SERVICE_H

#include <bt_dbus.h>

#include "service/app/GLibScheduler.h"
#include "service/app/Options.h"
#include "service/app/ServiceBus.h"
#include "service/app/StackProvider.h"
#include "service/frontend/SignalEmitter.h"
#include "service/frontend/segments/ParameterSegment.h"
#include "service/frontend/segments/Publisher.h"
#include "service/state/StateFile.h"

namespace btservice {

/// The whole service, put together: a stack, and what clients meet of it. To be made by a process that owns
/// the service's name.
class Service {
 public:
  /// The object is on the bus already; it must outlive this, as must the provider and the bus.
  Service(const Options& options, StackProvider& provider, ComZelkLinuxBluetooth* object, ServiceBus& bus);

  /// Takes over from a service before this one: reports what that one has left behind as ended, and makes or
  /// empties the segments. Then starts the stack. Called once, before the main loop looks at the first
  /// method call.
  void Start();
  /// Ends calls and connections, and lets applications know by signals. Called once, and nothing after it.
  void Stop();

 private:
  StackStart LoadStart();

  const Options& m_options;
  SegmentOwner m_segments;
  ParameterSegment m_parameters;
  StateFile m_state;
  GLibScheduler m_scheduler;
  SignalEmitter m_emitter;
  ProvidedStack m_provided;
  Publisher m_publisher;
};

}  // namespace btservice

#endif
