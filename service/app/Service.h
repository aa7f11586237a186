#ifndef SERVICE_APP_SERVICE_H
#define SERVICE_APP_SERVICE_H

#include <glib.h>

#include "service/app/Exported.h"
#include "service/app/GLibScheduler.h"
#include "service/app/Options.h"
#include "service/app/ServiceBus.h"
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

/// The whole service, put together.
class Service {
 public:
  /// The main loop is ended when the service is to end.
  Service(const Options& options, const WorldFile& file, GMainLoop* loop);

  /// Serves until the main loop ends, and answers the exit code of the process.
  int Run();

 private:
  WorldFile Prepare(WorldFile file);
  void BindMethods();
  void OnOwned();
  void OnLost(bool busIsGone);

  Options m_options;
  GMainLoop* m_loop;
  int m_exitCode = EXIT_ENDED;
  bool m_started = false;

  SegmentOwner m_segments;
  ParameterSegment m_parameters;
  StateFile m_state;
  WorldFile m_file;
  GLibScheduler m_scheduler;
  Exported<ComZelkLinuxBluetooth> m_object;
  Exported<BluetoothSim> m_controls;
  SignalEmitter m_emitter;
  SimulatedStack m_stack;
  Timeline m_timeline;
  Publisher m_publisher;
  AnswerFaults m_answers;
  ServiceBus m_bus;
};

}  // namespace btservice

#endif
