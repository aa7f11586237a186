#ifndef TESTS_SYSTEM_FAKEBUS_H
#define TESTS_SYSTEM_FAKEBUS_H

#include <atomic>
#include <string>
#include <thread>

#include <gio/gio.h>

#include "support/TemporaryDirectory.h"

namespace bttest {

/// Something at the address of a session bus that ends each connection at a moment of the test's choice, and
/// counts how often it is connected to. DBUS_SESSION_BUS_ADDRESS names it.
class FakeBus {
 public:
  enum class Ending {
    ON_CONNECT,       ///< before a word is spoken: nobody can get on this bus
    AFTER_HELLO,      ///< once the participant has been given its name
    ON_START_SERVICE  ///< when it is asked to start a service, instead of an answer
  };

  explicit FakeBus(Ending ending);
  ~FakeBus();
  FakeBus(const FakeBus&) = delete;
  FakeBus& operator=(const FakeBus&) = delete;

  int Connections() const { return m_connections; }

 private:
  void Serve();
  void Talk(int peer) const;
  /// Whether the connection is over after this message.
  bool Answer(int peer, GDBusMessage* message) const;

  const Ending m_ending;
  TemporaryDirectory m_directory;
  int m_listener = -1;
  std::atomic<int> m_connections{0};
  std::thread m_thread;
};

}  // namespace bttest

#endif
