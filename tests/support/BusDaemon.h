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
  /// Starts the bus. It activates the services that the files in serviceDirectory describe, and none if
  /// empty.
  explicit BusDaemon(const std::string& serviceDirectory = "");
  ~BusDaemon();

  /// Ends the bus at once, as a crash would.
  void Stop();
  /// Starts it again at the same address.
  void Start();

  const std::string& Address() const { return m_address; }

 private:
  TemporaryDirectory m_directory;
  std::string m_configuration;
  std::string m_address;
  std::unique_ptr<ChildProcess> m_process;
};

}  // namespace bttest

#endif
