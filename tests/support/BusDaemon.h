#ifndef TESTS_SUPPORT_BUSDAEMON_H
#define TESTS_SUPPORT_BUSDAEMON_H

#include <memory>
#include <string>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

namespace bttest {

/// A session bus of the test's own. While the object lives, DBUS_SESSION_BUS_ADDRESS names it, also when the
/// bus is stopped. Construct it before other threads run, which might read the environment.
class BusDaemon {
 public:
  /// What a connection may have sent without somebody having taken it, as session buses have it.
  static constexpr long kMostBytesOfAConnection = 1000000000;

  /// Starts the bus. It activates the services that the files in serviceDirectory describe, and none if
  /// empty. It reads nothing more from a connection whose messages take more than so many bytes.
  explicit BusDaemon(const std::string& serviceDirectory = "", long mostBytes = kMostBytesOfAConnection);
  ~BusDaemon();

  /// Ends the bus at once, as a crash would.
  void Stop();
  /// Starts it again at the same address.
  void Start();
  /// Sends a signal to the daemon.
  void Signal(int signal) { m_process->Signal(signal); }

  const std::string& Address() const { return m_address; }

 private:
  TemporaryDirectory m_directory;
  std::string m_configuration;
  std::string m_address;
  std::unique_ptr<ChildProcess> m_process;
};

}  // namespace bttest

#endif
