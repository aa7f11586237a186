#include "system/FakeBus.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "glib/OwnedBus.h"

namespace bttest {
namespace {

void Send(int peer, const void* data, std::size_t size) { send(peer, data, size, MSG_NOSIGNAL); }

void Send(int peer, const std::string& text) { Send(peer, text.data(), text.size()); }

/// Appends what has arrived; false if there will be no more.
bool Receive(int peer, std::string& received) {
  char buffer[4096];
  const ssize_t got = recv(peer, buffer, sizeof buffer, 0);
  if (got <= 0) {
    return false;
  }
  received.append(buffer, static_cast<std::size_t>(got));
  return true;
}

/// The server's part of the authentication by user id, up to its last line. What came after that is left in
/// received. False if the peer is gone.
bool Authenticate(int peer, std::string& received) {
  for (;;) {
    std::size_t end = 0;
    while ((end = received.find("\r\n")) == std::string::npos) {
      if (!Receive(peer, received)) {
        return false;
      }
    }
    std::string line = received.substr(0, end);
    received.erase(0, end + 2);
    line.erase(0, line.find_first_not_of('\0'));  // a NUL opens the conversation
    if (line == "BEGIN") {
      return true;
    }
    if (line == "AUTH") {
      Send(peer, "REJECTED EXTERNAL\r\n");
    } else if (line == "AUTH EXTERNAL") {
      Send(peer, "DATA\r\n");
    } else if (line.rfind("AUTH EXTERNAL ", 0) == 0 || line.rfind("DATA", 0) == 0) {
      Send(peer, "OK 0123456789abcdef0123456789abcdef\r\n");
    } else {
      Send(peer, "ERROR\r\n");
    }
  }
}

/// Takes one message off the front of received; null if none is whole.
OwnedObject<GDBusMessage> TakeMessage(std::string& received) {
  constexpr std::size_t kFixedHeader = 16;
  auto* const blob = reinterpret_cast<guchar*>(received.data());
  if (received.size() < kFixedHeader) {
    return nullptr;
  }
  const gssize size = g_dbus_message_bytes_needed(blob, received.size(), nullptr);
  if (size < 0 || static_cast<std::size_t>(size) > received.size()) {
    return nullptr;
  }
  OwnedObject<GDBusMessage> message(
      g_dbus_message_new_from_blob(blob, static_cast<gsize>(size), G_DBUS_CAPABILITY_FLAGS_NONE, nullptr));
  received.erase(0, static_cast<std::size_t>(size));
  return message;
}

}  // namespace

FakeBus::FakeBus(Ending ending) : m_ending(ending) {
  const std::string path = (m_directory.Path() / "bus").string();
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      listen(m_listener, SOMAXCONN) != 0) {
    throw std::runtime_error("no socket at " + path);
  }
  setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
  m_thread = std::thread([this] { Serve(); });
}

FakeBus::~FakeBus() {
  shutdown(m_listener, SHUT_RDWR);
  m_thread.join();
  close(m_listener);
}

void FakeBus::Serve() {
  for (;;) {
    const int peer = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (peer == -1) {
      return;
    }
    ++m_connections;
    if (m_ending != Ending::ON_CONNECT) {
      Talk(peer);
    }
    close(peer);
  }
}

void FakeBus::Talk(int peer) const {
  std::string received;
  if (!Authenticate(peer, received)) {
    return;
  }
  do {
    while (const OwnedObject<GDBusMessage> message = TakeMessage(received)) {
      if (Answer(peer, message.get())) {
        return;
      }
    }
  } while (Receive(peer, received));
}

bool FakeBus::Answer(int peer, GDBusMessage* message) const {
  const std::string member = g_dbus_message_get_member(message);
  if (member == "StartServiceByName") {
    return m_ending == Ending::ON_START_SERVICE;
  }
  if (member != "Hello") {
    return false;
  }
  const OwnedObject<GDBusMessage> reply(g_dbus_message_new_method_reply(message));
  g_dbus_message_set_sender(reply.get(), "org.freedesktop.DBus");
  g_dbus_message_set_destination(reply.get(), ":1.1");
  g_dbus_message_set_body(reply.get(), g_variant_new("(s)", ":1.1"));
  gsize size = 0;
  const OwnedMemory<guchar> blob(
      g_dbus_message_to_blob(reply.get(), &size, G_DBUS_CAPABILITY_FLAGS_NONE, nullptr));
  Send(peer, blob.get(), size);
  return m_ending == Ending::AFTER_HELLO;
}

}  // namespace bttest
