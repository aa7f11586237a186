#ifndef TESTS_SERVICE_RUNNING_SERVICE_H
#define TESTS_SERVICE_RUNNING_SERVICE_H

#include <memory>
#include <string>
#include <vector>

#include <gio/gio.h>

#include "protocol/BusNames.h"
#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "support/GlibHelpers.h"
#include "support/MainLoop.h"

namespace btservice {

constexpr const char* kExecutable = "/app/bin/btservice";

/// A btservice on a bus of its own, and a connection to that bus that knows nothing of the library.
class RunningService {
 public:
  enum class Begin { NOW, LATER };

  explicit RunningService(const std::vector<std::string>& options = {}, Begin begin = Begin::NOW,
                          long mostBytesOfAConnection = bttest::BusDaemon::kMostBytesOfAConnection);
  RunningService(const RunningService&) = delete;
  RunningService& operator=(const RunningService&) = delete;

  /// Starts it, later or once more after its end, with the options that it had.
  void Start();

  bttest::BusDaemon& Bus() { return m_bus; }
  bttest::ChildProcess& Process() { return *m_process; }
  GDBusConnection* Connection() { return m_connection.get(); }

  /// The unique name of the connection that owns the service's name now; empty if there is none.
  std::string Owner();
  /// A call's reply. arguments is a tuple, or null for none. Throws if the call fails.
  OwnedVariant Call(const std::string& method, GVariant* arguments = nullptr);
  /// The reply as text, such as "(byte 0x01,)".
  std::string Ask(const std::string& method, GVariant* arguments = nullptr);
  /// Calls one of the controls of the simulation, of whichever interface.
  OwnedVariant CallControl(const std::string& control, GVariant* arguments = nullptr);
  /// The reply as text.
  std::string Control(const std::string& control, GVariant* arguments = nullptr);
  /// As Call, for an object of another interface and path on the same connection.
  OwnedVariant CallOn(const char* path, const char* interface, const std::string& method,
                      GVariant* arguments);

  /// Signals that have come so far: "OnOpenBtStatusChanged (byte 0x03,)".
  const std::vector<std::string>& Signals() const { return m_signals; }
  /// Waits for a signal whose text begins like this.
  bool WaitFor(const std::string& beginning);
  /// Forgets those that were sent so far, also if they have not come yet.
  void ForgetSignals();

 private:
  static void OnSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name,
                       GVariant* arguments, gpointer self);
  bool IsOwned();

  std::vector<std::string> m_command{kExecutable};
  bttest::BusDaemon m_bus;
  std::unique_ptr<bttest::ChildProcess> m_process;
  OwnedObject<GDBusConnection> m_connection;
  std::vector<std::string> m_signals;
  OwnedSubscription m_subscription;
};

/// A connection to the bus of the environment.
OwnedObject<GDBusConnection> ConnectToBus();

}  // namespace btservice

#endif
