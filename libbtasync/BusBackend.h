#ifndef LIBBTASYNC_BUSBACKEND_H
#define LIBBTASYNC_BUSBACKEND_H

#include <list>
#include <map>
#include <memory>
#include <string>

#include <gio/gio.h>

#include "glib/OwnedBus.h"
#include "libbtasync/Backend.h"

namespace btasync {
inline namespace v0 {
namespace detail {

/// The service on the session bus, over a connection of its own, which is made again when it is lost.
class BusBackend final : public Backend {
 public:
  /// context: null for the thread's default one.
  explicit BusBackend(GMainContext* context);
  ~BusBackend() override;

  /// What the service's loop runs.
  GMainContext* Context() const { return m_context.get(); }
  /// Whether the service that is there now has answered anything yet.
  bool HasAnswered() const { return m_hasAnswered; }

  std::int64_t TimeMs() const override;
  void* StartTimer(int milliseconds, Wake wake, void* data) override;
  void StopTimer(void* timer) override;

 private:
  /// What GIO's callbacks of one connection hold. They may come when the connection is no longer the
  /// backend's.
  struct Link;
  struct SignalData;
  /// A request that was made before the connection stood.
  struct Waiting;

  void SendCall(const char* method, GVariant* arguments, int timeoutMs, PendingCall& call) override;
  void SendPlan(const Plan& plan, GVariant* arguments, int timeoutMs, PendingCall& call) override;
  void Watch(const EventKind& kind) override;
  void Unwatch(const EventKind& kind) override;
  void OnClosed() override;
  void CloseLater() override;

  void Connect();
  void RetryLater(const std::string& why);
  void TakeConnection(GDBusConnection* connection);
  /// Gives the connection up, without a word to anybody.
  void Disconnect();
  void LoseConnection();
  void SubscribeSignal(const EventKind& kind);
  void CallNow(const char* method, GVariant* arguments, int timeoutMs, PendingCall& call);
  void CallWaiting();
  void FailWaiting(const std::string& why);

  static void OnConnected(GObject* source, GAsyncResult* result, gpointer link);
  static void OnConnectionClosed(GDBusConnection* connection, gboolean remote, GError* error, gpointer link);
  static void OnNameAppeared(GDBusConnection* connection, const gchar* name, const gchar* owner,
                             gpointer link);
  static void OnNameVanished(GDBusConnection* connection, const gchar* name, gpointer link);
  static void OnSignal(GDBusConnection* connection, const gchar* sender, const gchar* path,
                       const gchar* interface, const gchar* signal, GVariant* values, gpointer data);
  static void OnReply(GObject* connection, GAsyncResult* result, gpointer call);

  OwnedMainContext m_context;
  OwnedObject<GDBusConnection> m_connection;
  /// Of the attempt to connect, or of the connection.
  Link* m_link = nullptr;
  OwnedObject<GCancellable> m_attempt;
  OwnedNameWatchId m_nameWatch;
  bool m_hasAnswered = false;
  std::map<const EventKind*, OwnedSubscription> m_signals;
  std::list<Waiting> m_waiting;
  /// Of an attempt, or until the next one. Gone once the service is.
  std::unique_ptr<Timer> m_attemptTimer;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
