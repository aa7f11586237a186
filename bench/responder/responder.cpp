// The other side of the benchmarks: answers the requests that are measured as fast as it can, sends signals
// in bulk on demand, and hands out the phone book by the roads that are compared. Runs until its standard
// input ends, so that it does not outlive the benchmark.

#include <cstdio>
#include <cstring>
#include <vector>

#include <bt_dbus.h>
#include <glib-unix.h>
#include <unistd.h>

#include "bench/book/PhoneBook.h"
#include "bench/peers/BookMessage.h"
#include "bench/responder/BenchInterface.h"
#include "glib/OwnedBus.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "protocol/BusNames.h"
#include "protocol/Segments.h"

namespace {

constexpr const char* kControlXml =
    "<node><interface name='bench.Control'>"
    "<method name='Emit'><arg name='signal' type='s' direction='in'/><arg name='arguments' type='v' "
    "direction='in'/>"
    "<arg name='times' type='u' direction='in'/></method>"
    "<method name='GetBook'><arg name='contacts' type='a(issa(ias))' direction='out'/></method>"
    "</interface></node>";

/// The phone book in its forms, made when it is asked for.
struct Book {
  explicit Book(void* segmentMemory) : memory(segmentMemory) {}

  void Make() {
    if (message == nullptr) {
      const PhoneBook contacts = MakeFullBook();
      segment = PackForSegment(contacts);
      message = PackAsMessage(contacts);
    }
  }

  std::vector<unsigned char> segment;
  OwnedVariant message;  ///< the reply of GetBook
  void* memory;          ///< of SH_CONTACT_LIST
};

/// The memory of SH_CONTACT_LIST; null if it cannot be had.
void* AttachSegment() {
  const bool found = ShareMemory::InitShareMemory(
      SH_CONTACT_LIST, static_cast<unsigned>(kSegmentCatalogue[SH_CONTACT_LIST].size));
  void* const memory = found ? ShareMemory::GetShareMemory(SH_CONTACT_LIST) : nullptr;
  return memory != reinterpret_cast<void*>(-1) ? memory : nullptr;
}

gboolean OnAcceptCall(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, gpointer) {
  com_zelk_linux_bluetooth_complete_accept_call(object, invocation, 1);
  return TRUE;
}

gboolean OnGetPowerStatus(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, gpointer) {
  com_zelk_linux_bluetooth_complete_get_power_status(object, invocation, 1);
  return TRUE;
}

gboolean OnConnect(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, const gchar*, guchar,
                   guchar, gpointer) {
  com_zelk_linux_bluetooth_complete_connect(object, invocation, 1);
  return TRUE;
}

gboolean OnDisConnect(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, const gchar*, guchar,
                      gpointer) {
  com_zelk_linux_bluetooth_complete_dis_connect(object, invocation, 1);
  return TRUE;
}

gboolean OnPair(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, const gchar*, const gchar*,
                gpointer) {
  com_zelk_linux_bluetooth_complete_pair(object, invocation, 1);
  return TRUE;
}

gboolean OnGetMediaInfo(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, gpointer) {
  com_zelk_linux_bluetooth_complete_get_media_info(object, invocation, "A title of some length", "An artist",
                                                   "An album, remastered", "3", "12", "Jazz", "215000", TRUE);
  return TRUE;
}

gboolean OnGetContactList(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, gpointer data) {
  auto& book = *static_cast<Book*>(data);
  book.Make();
  std::memcpy(book.memory, book.segment.data(), book.segment.size());
  com_zelk_linux_bluetooth_complete_get_contact_list(object, invocation, TRUE);
  return TRUE;
}

void EmitInBulk(GDBusConnection* connection, GVariant* parameters) {
  const gchar* signal = nullptr;
  OwnedVariant arguments;
  guint times = 0;
  g_variant_get(parameters, "(&svu)", &signal, arguments.Out(), &times);
  for (guint i = 0; i < times; ++i) {
    g_dbus_connection_emit_signal(connection, nullptr, kServicePath, kServiceName, signal, arguments.get(),
                                  nullptr);
  }
}

void OnControl(GDBusConnection* connection, const gchar*, const gchar*, const gchar*, const gchar* method,
               GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
  if (std::strcmp(method, "Emit") == 0) {
    EmitInBulk(connection, parameters);
    g_dbus_method_invocation_return_value(invocation, nullptr);
  } else {
    auto& book = *static_cast<Book*>(data);
    book.Make();
    g_dbus_method_invocation_return_value(invocation, book.message.get());
  }
}

gboolean OnInputEnds(gint, GIOCondition, gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_REMOVE;
}

/// Exports the service and the control object, and takes the service's name. False, with the reason on
/// standard error, if that fails.
bool Export(GDBusConnection* connection, ComZelkLinuxBluetooth* skeleton, Book& book) {
  g_signal_connect(skeleton, "handle-accept-call", G_CALLBACK(OnAcceptCall), nullptr);
  g_signal_connect(skeleton, "handle-get-power-status", G_CALLBACK(OnGetPowerStatus), nullptr);
  g_signal_connect(skeleton, "handle-connect", G_CALLBACK(OnConnect), nullptr);
  g_signal_connect(skeleton, "handle-dis-connect", G_CALLBACK(OnDisConnect), nullptr);
  g_signal_connect(skeleton, "handle-pair", G_CALLBACK(OnPair), nullptr);
  g_signal_connect(skeleton, "handle-get-media-info", G_CALLBACK(OnGetMediaInfo), nullptr);
  g_signal_connect(skeleton, "handle-get-contact-list", G_CALLBACK(OnGetContactList), &book);

  OwnedError error;
  const OwnedNodeInfo control(g_dbus_node_info_new_for_xml(kControlXml, nullptr));
  static const GDBusInterfaceVTable kControlTable = {OnControl, nullptr, nullptr, {}};
  const bool exported = g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(skeleton), connection,
                                                         kServicePath, error.Out()) &&
                        g_dbus_connection_register_object(connection, kBenchPath, control->interfaces[0],
                                                          &kControlTable, &book, nullptr, error.Out()) != 0 &&
                        OwnedVariant(g_dbus_connection_call_sync(
                            connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                            "org.freedesktop.DBus", "RequestName", g_variant_new("(su)", kServiceName, 0U),
                            nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out())) != nullptr;
  if (!exported) {
    std::fprintf(stderr, "responder: %s\n", error->message);
  }
  return exported;
}

}  // namespace

int main() {
  OwnedError error;
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
  if (connection == nullptr) {
    std::fprintf(stderr, "responder: %s\n", error->message);
    return 1;
  }
  void* const memory = AttachSegment();
  if (memory == nullptr) {
    std::fprintf(stderr, "responder: SH_CONTACT_LIST cannot be attached\n");
    return 1;
  }

  Book book(memory);
  const OwnedObject<ComZelkLinuxBluetooth> skeleton(com_zelk_linux_bluetooth_skeleton_new());
  const OwnedMainLoop loop(g_main_loop_new(nullptr, FALSE));
  if (!Export(connection.get(), skeleton.get(), book)) {
    return 1;
  }
  std::puts("ready");
  std::fflush(stdout);
  g_unix_fd_add(STDIN_FILENO, G_IO_HUP, OnInputEnds, loop.get());
  g_main_loop_run(loop.get());
  return 0;
}
