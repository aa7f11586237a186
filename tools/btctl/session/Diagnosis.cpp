#include "btctl/session/Diagnosis.h"

#include <cstdlib>

#include <gio/gio.h>

#include "protocol/BusNames.h"

namespace btctl {
namespace {

constexpr int kBusAnswersWithinMs = 2000;

/// Whether anybody owns the service's name; nothing is done about an error, which means that there is no bus.
Surroundings AskForOwner(GDBusConnection* bus) {
  g_autoptr(GVariant) answer = g_dbus_connection_call_sync(
      bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
      g_variant_new("(s)", kServiceName), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, kBusAnswersWithinMs,
      nullptr, nullptr);
  if (answer == nullptr) {
    return Surroundings::NO_BUS;
  }
  gboolean isOwned = FALSE;
  g_variant_get(answer, "(b)", &isOwned);
  return isOwned != FALSE ? Surroundings::COMPLETE : Surroundings::NO_SERVICE;
}

}  // namespace

Surroundings LookAround() {
  g_autoptr(GDBusConnection) bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (bus == nullptr) {
    return Surroundings::NO_BUS;
  }
  g_dbus_connection_set_exit_on_close(bus, FALSE);  // it may be lost without this program ending at once
  return AskForOwner(bus);
}

Failure WhyNotStarted() {
  switch (LookAround()) {
    case Surroundings::NO_BUS:
      return std::getenv("DBUS_SESSION_BUS_ADDRESS") == nullptr
                 ? Failure(EXIT_NO_BUS, "there is no session bus: DBUS_SESSION_BUS_ADDRESS is not set",
                           "Run this in a session, or with 'dbus-run-session --'.")
                 : Failure(
                       EXIT_NO_BUS,
                       std::string("there is no session bus at ") + std::getenv("DBUS_SESSION_BUS_ADDRESS"),
                       "Is the bus daemon of this session still running?");
    case Surroundings::NO_SERVICE:
      return Failure(EXIT_NO_SERVICE, "the Bluetooth service is not running on this session bus",
                     "Start it on this bus: /app/bin/btservice &");
    case Surroundings::COMPLETE:
      break;
  }
  return Failure(EXIT_NO_SERVICE, "the Bluetooth service does not answer", "Try again, with --verbose.");
}

Failure ServiceIsGone() {
  return LookAround() == Surroundings::NO_BUS
             ? Failure(EXIT_SERVICE_GONE, "the session bus went away",
                       "Start again in a session that has a bus.")
             : Failure(EXIT_SERVICE_GONE, "the Bluetooth service went away",
                       "Start it again and check its state: the request may or may not have had an effect.");
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

ServiceWatch::~ServiceWatch() { g_bus_unwatch_name(m_watch); }

}  // namespace btctl
