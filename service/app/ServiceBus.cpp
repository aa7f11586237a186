#include "service/app/ServiceBus.h"

#include <stdexcept>
#include <utility>

#define MWP_LOG_SOURCE "service/app/ServiceBus"
#include <mwp/MWPLog.h>

#include "service/app/BusNames.h"
#include "service/dbus/WireLimits.h"
#include "service/world/Quote.h"

namespace btservice {

ServiceBus::ServiceBus(Events events) : m_events(std::move(events)) {}

ServiceBus::~ServiceBus() {
  if (m_returnId != 0) {
    g_source_remove(m_returnId);
  }
  GiveUpName();
  if (m_connection != nullptr) {
    // What was said last shall be heard.
    g_dbus_connection_flush_sync(m_connection, nullptr, nullptr);
    m_sendQueue.reset();
    g_object_unref(m_connection);
  }
}

bool ServiceBus::Connect() {
  g_autoptr(GError) error = nullptr;
  m_connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
  if (m_connection == nullptr) {
    MWP_LOG(MWP_LOG_ERROR, "there is no session bus to serve: %s", error->message);
    return false;
  }
  g_dbus_connection_set_exit_on_close(m_connection, FALSE);
  m_sendQueue.emplace(m_connection);
  return true;
}

bool ServiceBus::Export(GDBusInterfaceSkeleton* skeleton, const char* path) {
  g_autoptr(GError) error = nullptr;
  if (g_dbus_interface_skeleton_export(skeleton, m_connection, path, &error) == FALSE) {
    MWP_LOG(MWP_LOG_ERROR, "%s cannot be exported: %s", path, error->message);
    return false;
  }
  return true;
}

void ServiceBus::OwnName() {
  m_nameId = g_bus_own_name_on_connection(m_connection, kServiceName, G_BUS_NAME_OWNER_FLAGS_DO_NOT_QUEUE,
                                          OnNameAcquired, OnNameLost, this, nullptr);
}

void ServiceBus::EmitSignal(const std::string& name, GVariant* tuple) {
  g_autoptr(GVariant) values = g_variant_ref_sink(tuple);
  if (name.size() > kLongestName || g_dbus_is_member_name(name.c_str()) == FALSE) {
    throw std::invalid_argument(Quote(name) + " cannot be the name of a signal");
  }
  g_dbus_connection_emit_signal(m_connection, nullptr, kServicePath, kServiceInterface, name.c_str(), values,
                                nullptr);
}

void ServiceBus::LeaveFor(unsigned milliseconds) {
  if (m_returnId != 0) {
    g_source_remove(m_returnId);
  }
  GiveUpName();
  m_returnId = g_timeout_add(
      milliseconds,
      [](gpointer self) -> gboolean {
        auto* const bus = static_cast<ServiceBus*>(self);
        bus->m_returnId = 0;
        bus->OwnName();
        return G_SOURCE_REMOVE;
      },
      this);
}

void ServiceBus::GiveUpName() {
  m_ownsName = false;
  if (m_nameId != 0) {
    g_bus_unown_name(std::exchange(m_nameId, 0));
  }
}

void ServiceBus::OnNameAcquired(GDBusConnection*, const gchar*, gpointer self) {
  auto* const bus = static_cast<ServiceBus*>(self);
  bus->m_ownsName = true;
  bus->m_events.onOwned();
}

void ServiceBus::OnNameLost(GDBusConnection* connection, const gchar*, gpointer self) {
  const bool busIsGone = connection == nullptr || g_dbus_connection_is_closed(connection) != FALSE;
  static_cast<ServiceBus*>(self)->m_events.onLost(busIsGone);
}

}  // namespace btservice
