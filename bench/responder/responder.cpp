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
      message = g_variant_ref_sink(PackAsMessage(contacts));
    }
  }

  std::vector<unsigned char> segment;
  GVariant* message = nullptr;  ///< the reply of GetBook
  void* memory;                 ///< of SH_CONTACT_LIST
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

gboolean OnGetContactList(ComZelkLinuxBluetooth* object, GDBusMethodInvocation* invocation, gpointer data) {
  auto& book = *static_cast<Book*>(data);
  book.Make();
  std::memcpy(book.memory, book.segment.data(), book.segment.size());
  com_zelk_linux_bluetooth_complete_get_contact_list(object, invocation, TRUE);
  return TRUE;
}

void EmitInBulk(GDBusConnection* connection, GVariant* parameters) {
  const gchar* signal = nullptr;
  GVariant* arguments = nullptr;
  guint times = 0;
  g_variant_get(parameters, "(&svu)", &signal, &arguments, &times);
  for (guint i = 0; i < times; ++i) {
    g_dbus_connection_emit_signal(connection, nullptr, kServicePath, kServiceName, signal, arguments,
                                  nullptr);
  }
  g_variant_unref(arguments);
}

void OnControl(GDBusConnection* connection, const gchar*, const gchar*, const gchar*, const gchar* method,
               GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
  if (std::strcmp(method, "Emit") == 0) {
    EmitInBulk(connection, parameters);
    g_dbus_method_invocation_return_value(invocation, nullptr);
  } else {
    auto& book = *static_cast<Book*>(data);
    book.Make();
    g_dbus_method_invocation_return_value(invocation, book.message);
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
  g_signal_connect(skeleton, "handle-get-contact-list", G_CALLBACK(OnGetContactList), &book);

  GError* error = nullptr;
  GDBusNodeInfo* const control = g_dbus_node_info_new_for_xml(kControlXml, nullptr);
  static const GDBusInterfaceVTable kControlTable = {OnControl, nullptr, nullptr, {}};
  GVariant* reply = nullptr;
  const bool exported = g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(skeleton), connection,
                                                         kServicePath, &error) &&
                        g_dbus_connection_register_object(connection, kBenchPath, control->interfaces[0],
                                                          &kControlTable, &book, nullptr, &error) != 0 &&
                        (reply = g_dbus_connection_call_sync(
                             connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                             "org.freedesktop.DBus", "RequestName", g_variant_new("(su)", kServiceName, 0U),
                             nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &error)) != nullptr;
  if (!exported) {
    std::fprintf(stderr, "responder: %s\n", error->message);
  }
  g_clear_error(&error);
  g_clear_pointer(&reply, g_variant_unref);
  g_dbus_node_info_unref(control);
  return exported;
}

}  // namespace

int main() {
  GError* error = nullptr;
  GDBusConnection* const connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
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
  ComZelkLinuxBluetooth* const skeleton = com_zelk_linux_bluetooth_skeleton_new();
  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  if (!Export(connection, skeleton, book)) {
    return 1;
  }
  std::puts("ready");
  std::fflush(stdout);
  g_unix_fd_add(STDIN_FILENO, G_IO_HUP, OnInputEnds, loop);
  g_main_loop_run(loop);
  return 0;
}
