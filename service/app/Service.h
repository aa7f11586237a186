#ifndef SERVICE_APP_SERVICE_H
#define SERVICE_APP_SERVICE_H

#include "service/app/GLibScheduler.h"
#include "service/app/Options.h"
#include "service/app/ServiceBus.h"
#include "service/control/CallLimit.h"
#include "service/control/ControlMethods.h"
#include "service/dbus/Methods.h"
#include "service/dbus/SignalEmitter.h"
#include "service/model/SimulatedStack.h"
#include "service/model/Timeline.h"
#include "service/segments/ParameterSegment.h"
#include "service/segments/Publisher.h"
#include "service/state/StateFile.h"
#include "service/world/WorldFile.h"

namespace btservice {

/// The whole service, put together. To be made by a process that owns the service's name.
class Service {
 public:
  /// The objects are on the bus already; they must outlive this, and the bus must too.
  Service(const Options& options, WorldFile file, ComZelkLinuxBluetooth* object, BluetoothSim* controls,
          ServiceBus& bus);

  /// Takes over from a service before this one, and begins to live.
  void Start();
  /// Ends calls and connections, and lets applications know.
  void Stop();

 private:
  WorldFile Prepare(WorldFile file);
  void BindMethods(ComZelkLinuxBluetooth* object, BluetoothSim* controls);

  const Options& m_options;
  ServiceBus& m_bus;
  SegmentOwner m_segments;
  ParameterSegment m_parameters;
  StateFile m_state;
  WorldFile m_file;
  GLibScheduler m_scheduler;
  SignalEmitter m_emitter;
  SimulatedStack m_stack;
  Timeline m_timeline;
  Publisher m_publisher;
  AnswerFaults m_answers;
  CallLimit m_controlLimit;
};

}  // namespace btservice

#endif
