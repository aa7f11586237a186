#include "btctl/bus/SessionBus.h"

#include <gio/gio.h>

#include "btctl/base/Failure.h"
#include "btctl/bus/Diagnosis.h"
#include "protocol/BusNames.h"

namespace btctl {
namespace {

constexpr int kBusAnswersWithinMs = 2000;
constexpr int kServiceAnswersWithinMs = 25000;
// Unlike the bus's own interfaces, which all objects have.
constexpr const char* kControlInterfacePrefix = "com.zelk.";

/// The shared connection; null if there is no bus.
OwnedObject<GDBusConnection> Connect() {
  OwnedObject<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (bus != nullptr) {
    // It may be lost without this program ending at once.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  }
  return bus;
}

/// Whether anybody owns the service's name; nothing is done about an error, which means that there is no bus.
Surroundings AskForOwner(GDBusConnection* bus) {
  const OwnedVariant answer(g_dbus_connection_call_sync(
      bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
      g_variant_new("(s)", kServiceName), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, kBusAnswersWithinMs,
      nullptr, nullptr));
  if (answer == nullptr) {
    return Surroundings::NO_BUS;
  }
  gboolean isOwned = FALSE;
  g_variant_get(answer.get(), "(b)", &isOwned);
  return isOwned != FALSE ? Surroundings::COMPLETE : Surroundings::NO_SERVICE;
}

/// Calls a method of the object that has the controls.
OwnedVariant CallService(const char* interface, const char* method, GVariant* arguments,
                         const GVariantType* type) {
  const OwnedObject<GDBusConnection> bus = Connect();
  if (bus == nullptr) {
    throw ServiceIsGone();
  }
  OwnedError error;
  OwnedVariant answer(g_dbus_connection_call_sync(bus.get(), kServiceName, kControlPath, interface, method,
                                                  arguments, type, G_DBUS_CALL_FLAGS_NONE,
                                                  kServiceAnswersWithinMs, nullptr, error.Out()));
  if (answer == nullptr) {
    if (LookAround() != Surroundings::COMPLETE) {
      throw ServiceIsGone();
    }
    g_dbus_error_strip_remote_error(error.get());
    throw Failure(EXIT_REFUSED, std::string(method) + ": " + error->message);
  }
  return answer;
}

std::vector<ControlValue> ValuesOf(GDBusArgInfo* const* described) {
  std::vector<ControlValue> values;
  for (; described != nullptr && *described != nullptr; ++described) {
    values.push_back({(*described)->name, (*described)->signature});
  }
  return values;
}

void AddMethods(std::vector<ControlMethod>& all, const GDBusInterfaceInfo& interface) {
  for (GDBusMethodInfo** at = interface.methods; at != nullptr && *at != nullptr; ++at) {
    all.push_back({interface.name, (*at)->name, ValuesOf((*at)->in_args), ValuesOf((*at)->out_args)});
  }
}

}  // namespace

Surroundings LookAround() {
  const OwnedObject<GDBusConnection> bus = Connect();
  return bus == nullptr ? Surroundings::NO_BUS : AskForOwner(bus.get());
}

ServiceWatch::ServiceWatch(Observer observer)
    : m_observer(std::move(observer)),
      m_watch(g_bus_watch_name(
          G_BUS_TYPE_SESSION, kServiceName, G_BUS_NAME_WATCHER_FLAGS_NONE,
          [](GDBusConnection* bus, const char*, const char*, gpointer self) {
            g_dbus_connection_set_exit_on_close(bus, FALSE);
            static_cast<ServiceWatch*>(self)->m_observer(true);
          },
          [](GDBusConnection*, const char*, gpointer self) {
            static_cast<ServiceWatch*>(self)->m_observer(false);
          },
          this, nullptr)) {}

std::vector<ControlMethod> DescribeControls() {
  const OwnedVariant answer =
      CallService("org.freedesktop.DBus.Introspectable", "Introspect", nullptr, G_VARIANT_TYPE("(s)"));
  const char* xml = nullptr;
  g_variant_get(answer.get(), "(&s)", &xml);
  const OwnedNodeInfo node(g_dbus_node_info_new_for_xml(xml, nullptr));
  std::vector<ControlMethod> controls;
  for (GDBusInterfaceInfo** at = node != nullptr ? node->interfaces : nullptr;
       at != nullptr && *at != nullptr; ++at) {
    if (g_str_has_prefix((*at)->name, kControlInterfacePrefix) != FALSE) {
      AddMethods(controls, **at);
    }
  }
  return controls;
}

OwnedVariant CallControl(const ControlMethod& method, const OwnedVariant& arguments) {
  return CallService(method.interface.c_str(), method.name.c_str(), arguments.get(), nullptr);
}

}  // namespace btctl
