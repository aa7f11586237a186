#include "service/app/ServiceBus.h"

#include <utility>

#define MWP_LOG_SOURCE "service/app/ServiceBus"
#include <mwp/MWPLog.h>

namespace btservice {
namespace {

constexpr const char* kBusName = "com.zelk.linux.bluetooth";
constexpr const char* kObjectPath = "/com/zelk/linux/bluetooth";

}  // namespace

ServiceBus::ServiceBus(Events events)
    : m_events(std::move(events)), m_skeleton(com_zelk_linux_bluetooth_skeleton_new()) {}

ServiceBus::~ServiceBus() {
  if (m_nameId != 0) {
    g_bus_unown_name(m_nameId);
  }
  if (m_connection != nullptr) {
    g_dbus_interface_skeleton_unexport(G_DBUS_INTERFACE_SKELETON(m_skeleton));
    // What was said last shall be heard.
    g_dbus_connection_flush_sync(m_connection, nullptr, nullptr);
    g_object_unref(m_connection);
  }
  g_object_unref(m_skeleton);
}

bool ServiceBus::Open() {
  g_autoptr(GError) error = nullptr;
  m_connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
  if (m_connection != nullptr) {
    g_dbus_connection_set_exit_on_close(m_connection, FALSE);
    g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(m_skeleton), m_connection, kObjectPath,
                                     &error);
  }
  if (error != nullptr) {
    MWP_LOG(MWP_LOG_ERROR, "there is no session bus to serve: %s", error->message);
    return false;
  }
  m_nameId = g_bus_own_name_on_connection(m_connection, kBusName, G_BUS_NAME_OWNER_FLAGS_DO_NOT_QUEUE,
                                          OnNameAcquired, OnNameLost, this, nullptr);
  return true;
}

void ServiceBus::OnNameAcquired(GDBusConnection*, const gchar*, gpointer self) {
  static_cast<ServiceBus*>(self)->m_events.onOwned();
}

void ServiceBus::OnNameLost(GDBusConnection* connection, const gchar*, gpointer self) {
  const bool busIsGone = connection == nullptr || g_dbus_connection_is_closed(connection) != FALSE;
  static_cast<ServiceBus*>(self)->m_events.onLost(busIsGone);
}

}  // namespace btservice
