// bt_recorder [--no-name]: a recording Bluetooth service on the session bus. Prints its unique bus name when
// it is ready. With --no-name it takes the service's name only when it is asked to.

#include <cstdio>
#include <cstring>

#include "recorder/RecorderControl.h"

namespace {

bttest::NodeInfoPtr ReadDescription(const char* file) {
  bttest::ErrorCollector error;
  char* text = nullptr;
  g_file_get_contents(file, &text, nullptr, error);
  error.ThrowIfSet(file);
  bttest::NodeInfoPtr node(g_dbus_node_info_new_for_xml(bttest::CharPtr(text).get(), error));
  error.ThrowIfSet(file);
  return node;
}

void Run(bool ownsName) {
  const bttest::NodeInfoPtr bluetooth = ReadDescription(BT_INTERFACE_XML);
  const bttest::NodeInfoPtr recorder = ReadDescription(RECORDER_INTERFACE_XML);
  bttest::ErrorCollector error;
  // The process ends with its bus: this connection is made to do so.
  const bttest::ConnectionPtr connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error));
  error.ThrowIfSet("connecting to the session bus");

  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  RecordingService service(connection.get(), bluetooth->interfaces[0]);
  RecorderControl control(connection.get(), recorder->interfaces[0], service, loop);
  if (ownsName) {
    control.OwnName();
  }
  std::printf("%s\n", g_dbus_connection_get_unique_name(connection.get()));
  std::fflush(stdout);
  g_main_loop_run(loop);
  g_main_loop_unref(loop);
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
