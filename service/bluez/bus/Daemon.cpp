#include "service/bluez/bus/Daemon.h"

#include <utility>

namespace btservice::bluez {

/// What GLib is given of a call. It may outlive the daemon's object.
struct Daemon::PendingCall {
  std::weak_ptr<const int> alive;
  ReplyHandler handler;
};

Daemon::Daemon(SystemBus& bus, std::string name) : m_bus(bus), m_name(std::move(name)) {
  m_bus.onConnected.Add([this] { Watch(); });
  m_bus.onLost.Add([this] {
    m_watch.reset();
    Lose();
  });
}

void Daemon::Watch() {
  m_watch = OwnedNameWatchId(g_bus_watch_name_on_connection(m_bus.Connection(), m_name.c_str(),
                                                            G_BUS_NAME_WATCHER_FLAGS_NONE, OnAppeared,
                                                            OnVanished, this, nullptr));
}

void Daemon::OnAppeared(GDBusConnection* connection, const gchar*, const gchar* owner, gpointer self) {
  auto* const daemon = static_cast<Daemon*>(self);
  daemon->Lose();
  daemon->m_owner = owner;
  // By its own name, so that nothing of one daemon is taken for the next one's.
  daemon->m_signals = OwnedSubscription(
      connection, g_dbus_connection_signal_subscribe(connection, owner, nullptr, nullptr, nullptr, nullptr,
                                                     G_DBUS_SIGNAL_FLAGS_NONE, OnSignal, self, nullptr));
  daemon->onCome();
}

void Daemon::OnVanished(GDBusConnection*, const gchar*, gpointer self) { static_cast<Daemon*>(self)->Lose(); }

void Daemon::Lose() {
  if (IsThere()) {
    m_owner.clear();
    m_signals.reset();
    onGone();
  }
}

void Daemon::OnSignal(GDBusConnection*, const gchar*, const gchar* path, const gchar* interface,
                      const gchar* name, GVariant* values, gpointer self) {
  static_cast<Daemon*>(self)->onSignal({path, interface, name, values});
}

bool Daemon::Call(const MethodCall& call, const GVariantType* answer, ReplyHandler handler) {
  if (!IsThere()) {
    return false;
  }
  g_dbus_connection_call(m_bus.Connection(), m_owner.c_str(), call.path.c_str(), call.interface.c_str(),
                         call.method.c_str(), call.arguments.get(), answer, G_DBUS_CALL_FLAGS_NO_AUTO_START,
                         static_cast<gint>(call.limit.count()), nullptr, &Daemon::OnReply,
                         new PendingCall{m_alive, std::move(handler)});
  return true;
}

void Daemon::OnReply(GObject* connection, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<PendingCall> pending(static_cast<PendingCall*>(data));
  OwnedError problem;
  Reply reply{
      OwnedVariant(g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, problem.Out())), ""};
  if (problem) {
    const OwnedText remote(g_dbus_error_get_remote_error(problem.get()));
    g_dbus_error_strip_remote_error(problem.get());
    reply.error = (remote ? std::string(remote.get()) + ": " : "") + problem->message;
  }
  if (!pending->alive.expired()) {
    pending->handler(reply);
  }
}

}  // namespace btservice::bluez
