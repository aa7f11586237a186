#ifndef SERVICE_APP_PROCESS_H
#define SERVICE_APP_PROCESS_H

#include <optional>

#include <glib.h>

#include "service/app/Exported.h"
#include "service/app/Options.h"
#include "service/app/Service.h"
#include "service/app/ServiceBus.h"

namespace btservice {

/// The process: its place on the bus, and the service from the moment on at which it owns the name. Segments,
/// settings and state belong to whoever owns it, so that a process that is refused touches none of them.
class Process {
 public:
  /// The main loop is ended when the process is to end.
  Process(const Options& options, StackProvider& provider, GMainLoop* loop);

  /// Serves until the main loop ends, and answers the exit code of the process.
  int Run();

 private:
  void OnOwned();
  void OnLost(bool busIsGone);

  Options m_options;
  StackProvider& m_provider;
  GMainLoop* m_loop;
  int m_exitCode = EXIT_ENDED;

  Exported<ComZelkLinuxBluetooth> m_object;
  ServiceBus m_bus;
  std::optional<Service> m_service;
};

}  // namespace btservice

#endif
