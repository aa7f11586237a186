// bt_recorder [--no-name]: a recording Bluetooth service on the session bus. Prints its unique bus name when
// it is ready. With --no-name it takes the service's name only when it is asked to.

#include <cstdio>
#include <cstring>

#include "recorder/RecorderControl.h"
#include "support/GlibHelpers.h"

namespace {

OwnedNodeInfo ReadDescription(const char* file) {
  OwnedError error;
  OwnedText text;
  g_file_get_contents(file, text.Out(), nullptr, error.Out());
  bttest::ThrowIfSet(error, file);
  OwnedNodeInfo node(g_dbus_node_info_new_for_xml(text.get(), error.Out()));
  bttest::ThrowIfSet(error, file);
  return node;
}

void Run(bool ownsName) {
  const OwnedNodeInfo bluetooth = ReadDescription(BT_INTERFACE_XML);
  const OwnedNodeInfo recorder = ReadDescription(RECORDER_INTERFACE_XML);
  OwnedError error;
  // The process ends with its bus: this connection is made to do so.
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "connecting to the session bus");

  const OwnedMainLoop loop(g_main_loop_new(nullptr, FALSE));
  RecordingService service(connection.get(), bluetooth->interfaces[0]);
  RecorderControl control(connection.get(), recorder->interfaces[0], service, loop.get());
  if (ownsName) {
    control.OwnName();
  }
  std::printf("%s\n", g_dbus_connection_get_unique_name(connection.get()));
  std::fflush(stdout);
  g_main_loop_run(loop.get());
  g_dbus_connection_flush_sync(connection.get(), nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Run(argc < 2 || std::strcmp(argv[1], "--no-name") != 0);
    return 0;
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "bt_recorder: %s\n", problem.what());
    return 1;
  }
}
