// bt_fakes: stands in for the Bluetooth daemons of Linux on the system bus of the environment. Prints a line
// when it is ready; a test drives it (test.FakeBluez.xml). It ends with its bus.

#include <cstdio>

#include "fakes/FakeBluez.h"
#include "support/GlibHelpers.h"

namespace {

void Run() {
  OwnedError error;
  // The process ends with its bus: this connection is made to do so.
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "connecting to the system bus");
  const OwnedMainLoop loop(g_main_loop_new(nullptr, FALSE));
  const fakes::FakeBluez bluez(connection.get());
  const OwnedNameId name(g_bus_own_name_on_connection(
      connection.get(), "org.bluez", G_BUS_NAME_OWNER_FLAGS_DO_NOT_QUEUE,
      [](GDBusConnection*, const gchar*, gpointer) {
        std::puts("ready");
        std::fflush(stdout);
      },
      [](GDBusConnection*, const gchar*, gpointer ended) {
        g_main_loop_quit(static_cast<GMainLoop*>(ended));
      },
      loop.get(), nullptr));
  g_main_loop_run(loop.get());
}

}  // namespace

int main() {
  try {
    Run();
    return 0;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "bt_fakes: %s\n", problem.what());
    return 1;
  }
}
