#ifndef SERVICE_BLUEZ_BUS_DAEMON_H
#define SERVICE_BLUEZ_BUS_DAEMON_H

#include <functional>
#include <memory>
#include <string>

#include "glib/OwnedBus.h"
#include "service/bluez/bus/SystemBus.h"
#include "service/time/Notifier.h"

namespace btservice::bluez {

/// A method of an object of a daemon's, and what it is called with.
struct MethodCall {
  std::string path;
  std::string interface;
  std::string method;
  OwnedVariant arguments;     ///< a tuple; null for none
  Milliseconds limit{25000};  ///< how long the answer may take
};

/// What became of a call.
struct Reply {
  OwnedVariant values;  ///< a tuple; null if the call has failed
  std::string error;    ///< why: "org.bluez.Error.Busy: In Progress"; empty if it has not

  bool Worked() const { return error.empty(); }
};
using ReplyHandler = std::function<void(const Reply&)>;

/// A signal that the daemon sent. Good until the callback returns.
struct DaemonSignal {
  std::string path;
  std::string interface;
  std::string name;
  GVariant* values;  ///< a tuple of any types: a daemon may send anything
};

/// One daemon on the system bus, by its name: whether it runs, its signals, and calls to it. It is not
/// started by this: that is up to the system. It may be killed and come back at any time; what comes back is
/// another one, that knows nothing of what was asked of the last. Used on the thread of the main loop, where
/// the callbacks come, too.
class Daemon {
 public:
  /// name: of the bus, such as org.bluez. The bus must outlive this.
  Daemon(SystemBus& bus, std::string name);
  Daemon(const Daemon&) = delete;
  Daemon& operator=(const Daemon&) = delete;

  const std::string& Name() const { return m_name; }
  bool IsThere() const { return !m_owner.empty(); }
  /// Calls a method. handler is called once, never inside this: with the answer, which is of the type given
  /// if that is not null, or with an error: as the daemon says it, or because it has ended, or because
  /// it hangs for longer than the limit. It is not called any more when the daemon object is gone. False,
  /// and nothing is called, if the daemon is not there.
  bool Call(const MethodCall& call, const GVariantType* answer, ReplyHandler handler);

  Notifier<> onCome;
  Notifier<> onGone;
  Notifier<const DaemonSignal&> onSignal;

 private:
  struct PendingCall;
  static void OnReply(GObject* connection, GAsyncResult* result, gpointer pending);
  static void OnAppeared(GDBusConnection* connection, const gchar* name, const gchar* owner, gpointer self);
  static void OnVanished(GDBusConnection* connection, const gchar* name, gpointer self);
  static void OnSignal(GDBusConnection* connection, const gchar* sender, const gchar* path,
                       const gchar* interface, const gchar* name, GVariant* values, gpointer self);
  void Watch();
  void Lose();

  SystemBus& m_bus;
  const std::string m_name;
  std::string m_owner;  ///< the connection that has the name; empty while there is none
  OwnedNameWatchId m_watch;
  OwnedSubscription m_signals;
  std::shared_ptr<const int> m_alive = std::make_shared<int>(0);  ///< seen by calls whose answer is late
};

}  // namespace btservice::bluez

#endif
