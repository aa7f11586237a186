#ifndef TESTS_BLUEZ_FAKEDAEMONS_H
#define TESTS_BLUEZ_FAKEDAEMONS_H

#include <memory>
#include <string>
#include <vector>

#include "glib/OwnedBus.h"
#include "support/BusDaemon.h"
#include "support/ChildProcess.h"

namespace bttest {

/// A system bus of the test's own: while it lives, DBUS_SYSTEM_BUS_ADDRESS names it. Construct it before any
/// other BusDaemon, which is then the session bus.
class SystemBusDaemon {
 public:
  SystemBusDaemon();
  ~SystemBusDaemon();
  SystemBusDaemon(const SystemBusDaemon&) = delete;
  SystemBusDaemon& operator=(const SystemBusDaemon&) = delete;

  /// Ends the bus at once, as a crash would; starts it again at the same address.
  void Stop() { m_daemon.Stop(); }
  void Start() { m_daemon.Start(); }

 private:
  BusDaemon m_daemon;
};

/// A fake of BlueZ's daemon, running on the system bus of the test, and its controls: those of
/// test.FakeBluez.xml.
class FakeDaemons {
 public:
  /// Returns when it owns org.bluez.
  FakeDaemons();
  FakeDaemons(const FakeDaemons&) = delete;
  FakeDaemons& operator=(const FakeDaemons&) = delete;

  ChildProcess& Process() { return m_process; }

  void AddAdapter(const std::string& name, const std::string& address, bool powered = false);
  void RemoveAdapter(const std::string& name);
  void ChangeAdapter(const std::string& name, const std::string& property, GVariant* value);
  void PutInReach(const std::string& address, const std::string& name = "");
  void TakeAway(const std::string& address);
  void Hear(const std::string& address);
  void NameDevice(const std::string& address, const std::string& name);
  void ForgetDevices();
  void SetPaired(const std::string& address, bool paired);
  std::vector<std::string> Devices();
  /// As text.
  std::string Filter();

  void Refuse(const std::string& method, const std::string& error, const std::string& message);
  void Hang(const std::string& method);
  void AnswerWith(const std::string& method, GVariant* tuple);
  void Behave();
  void Emit(const std::string& path, const std::string& interface, const std::string& signal,
            GVariant* tuple);
  std::vector<std::string> Calls();
  /// How often a method was called so far.
  long CountCalls(const std::string& method);

 protected:
  OwnedVariant Control(const char* method, GVariant* arguments = nullptr);

 private:
  ChildProcess m_process;
  OwnedObject<GDBusConnection> m_connection;
};

}  // namespace bttest

#endif
