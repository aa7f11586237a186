#ifndef TESTS_ASYNC_SILENTBUS_H
#define TESTS_ASYNC_SILENTBUS_H

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#include "support/TemporaryDirectory.h"

namespace bttest {

/// Something at the address of a session bus that lets everybody connect and never says a word.
/// DBUS_SESSION_BUS_ADDRESS names it.
class SilentBus {
 public:
  SilentBus() : m_listener(socket(AF_UNIX, SOCK_STREAM, 0)) {
    const std::string path = m_directory.Path() / "bus";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    if (bind(m_listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(m_listener, kBacklog) != 0) {
      throw std::runtime_error("a socket cannot be made");
    }
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
  }
  ~SilentBus() {
    close(m_listener);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }
  SilentBus(const SilentBus&) = delete;
  SilentBus& operator=(const SilentBus&) = delete;

 private:
  static constexpr int kBacklog = 8;

  TemporaryDirectory m_directory;
  int m_listener;
};

}  // namespace bttest

#endif
