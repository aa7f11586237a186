#include "support/BusDaemon.h"

#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

#include "support/GlibHelpers.h"

namespace bttest {
namespace {

/// Whether the session bus, as GLib finds it, answers a new connection.
bool CanConnect() {
  const OwnedText address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (address == nullptr) {
    return false;
  }
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  return OwnedObject<GDBusConnection>(g_dbus_connection_new_for_address_sync(address.get(), flags, nullptr,
                                                                             nullptr, nullptr)) != nullptr;
}

TEST(Bus, IsNotThereUnlessATestMakesOne) { EXPECT_FALSE(CanConnect()); }

TEST(Bus, ComesGoesAndComesBackAtTheSameAddress) {
  {
    BusDaemon bus;
    EXPECT_TRUE(CanConnect());
    EXPECT_EQ(bus.Address(), std::getenv("DBUS_SESSION_BUS_ADDRESS"));
    bus.Stop();
    EXPECT_FALSE(CanConnect());
    bus.Start();
    EXPECT_TRUE(CanConnect());
  }
  EXPECT_FALSE(CanConnect());
}

TEST(Bus, ActivatesTheServicesOfADirectoryAndNoOthers) {
  const auto activate = [] {
    OwnedError error;
    const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
    ThrowIfSet(error, "connecting");
    const OwnedVariant reply(g_dbus_connection_call_sync(
        connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "ListActivatableNames", nullptr, G_VARIANT_TYPE("(as)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
        error.Out()));
    ThrowIfSet(error, "asking the bus");
    return ToText(reply.get());
  };
  TemporaryDirectory services;
  std::ofstream(services.Path() / "one.service") << "[D-BUS Service]\nName=test.One\nExec=/bin/false\n";
  BusDaemon bus(services.Path());
  EXPECT_EQ("(['org.freedesktop.DBus', 'test.One'],)", activate());
}

}  // namespace
}  // namespace bttest
