// What has been sent and nobody takes: it is counted, since GLib keeps it in memory without a limit.

#include <array>
#include <stdexcept>

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "service/app/SendQueue.h"
#include "support/GlibHelpers.h"
#include "support/Waiting.h"

namespace btservice {
namespace {

constexpr int kFarMoreThanASocketHolds = 100000;

/// A D-Bus connection whose other end is a plain socket.
class Line {
 public:
  Line() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0) {
      throw std::runtime_error("there is no pair of sockets");
    }
    m_farEnd = ends[1];
    OwnedError error;
    const OwnedObject<GSocket> socket(g_socket_new_from_fd(ends[0], error.Out()));
    bttest::ThrowIfSet(error, "taking the socket");
    const OwnedObject<GSocketConnection> stream(g_socket_connection_factory_create_connection(socket.get()));
    m_connection.reset(g_dbus_connection_new_sync(
        G_IO_STREAM(stream.get()), nullptr, G_DBUS_CONNECTION_FLAGS_NONE, nullptr, nullptr, error.Out()));
    bttest::ThrowIfSet(error, "connecting");
  }
  ~Line() { close(m_farEnd); }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  GDBusConnection* Connection() { return m_connection.get(); }
  void Send() { g_dbus_connection_emit_signal(Connection(), nullptr, "/a", "a.b", "C", nullptr, nullptr); }
  /// Takes what has arrived at the other end.
  void Drain() {
    std::array<char, 65536> buffer{};
    while (read(m_farEnd, buffer.data(), buffer.size()) > 0) {
    }
  }

 private:
  int m_farEnd = -1;
  OwnedObject<GDBusConnection> m_connection;
};

TEST(SendQueueTest, IsFullWhenNobodyReadsAndHasRoomAgainWhenSomebodyDoes) {
  Line line;
  const SendQueue queue(line.Connection());
  EXPECT_TRUE(queue.HasRoom());
  int sent = 0;
  while (queue.HasRoom() && sent < kFarMoreThanASocketHolds) {
    line.Send();
    ++sent;
  }
  EXPECT_LT(sent, kFarMoreThanASocketHolds);
  EXPECT_FALSE(queue.HasRoom());
  EXPECT_TRUE(bttest::WaitUntil([&] {
    line.Drain();
    return queue.HasRoom();
  }));
}

}  // namespace
}  // namespace btservice
