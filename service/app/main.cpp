// btservice: a Bluetooth service to develop against, without car and phone.

#include <cstdio>
#include <ctime>

#include <glib-unix.h>

#define MWP_LOG_SOURCE "service/app/main"
#include <mwp/MWPLog.h>

#include "service/app/GLibScheduler.h"
#include "service/app/Options.h"
#include "service/app/ServiceBus.h"
#include "service/dbus/Methods.h"
#include "service/dbus/SignalEmitter.h"
#include "service/model/SimulatedStack.h"
#include "service/segments/ParameterSegment.h"
#include "service/segments/Publisher.h"

namespace {

using namespace btservice;

gboolean QuitOnSignal(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_CONTINUE;
}

int Serve(const Options& options, GMainLoop* loop) {
  int exitCode = EXIT_ENDED;
  SegmentOwner segments;
  ParameterSegment parameters(segments);

  GLibScheduler scheduler(options.speed);
  World world = BuiltInWorld();
  world.startTime = std::time(nullptr);
  world.settings = parameters.Load();
  SimulatedStack stack(scheduler, world);
  Publisher publisher(segments, stack);

  ServiceBus bus({[&] {
                    MWP_LOG(MWP_LOG_INFO, "serving");
                    publisher.PublishAll();
                    stack.Start();
                  },
                  [&](bool busIsGone) {
                    if (busIsGone) {
                      MWP_LOG(MWP_LOG_WARNING, "the session bus is gone");
                    } else {
                      std::fputs(
                          "btservice: com.zelk.linux.bluetooth has an owner on this bus already; "
                          "end that service first\n",
                          stderr);
                      exitCode = EXIT_NAME_TAKEN;
                    }
                    g_main_loop_quit(loop);
                  }});
  SignalEmitter emitter(bus.Skeleton());
  const MethodBinder binder(bus.Skeleton());
  BindAdapterMethods(binder, stack.Adapter());
  BindDeviceMethods(binder, stack.Devices());
  stack.AddObserver(parameters);
  stack.AddObserver(publisher);
  stack.AddObserver(emitter);

  if (!bus.Open()) {
    std::fputs(
        "btservice: there is no session bus; set DBUS_SESSION_BUS_ADDRESS, or start one with "
        "dbus-run-session\n",
        stderr);
    return EXIT_NO_BUS;
  }
  g_main_loop_run(loop);
  if (!options.keepSegments) {
    segments.RemoveOwn();
  }
  return exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  int exitCode = EXIT_ENDED;
  if (!ParseOptions(argc, argv, options, exitCode)) {
    return exitCode;
  }
  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  g_unix_signal_add(SIGTERM, QuitOnSignal, loop);
  g_unix_signal_add(SIGINT, QuitOnSignal, loop);
  exitCode = Serve(options, loop);
  g_main_loop_unref(loop);
  return exitCode;
}
