// The interface as it is published: by btservice on a bus, and by the description in the library.

#include <gtest/gtest.h>

#include <bt_dbus.h>

#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "support/MainLoop.h"
#include "support/Waiting.h"

namespace {

using bttest::Arguments;
using bttest::InterfaceDescription;

std::string ToText(const Arguments& arguments) {
  std::string text;
  for (const bttest::ArgumentDescription& argument : arguments) {
    text += " " + argument.name + ":" + argument.signature;
  }
  return text;
}

/// All of a description, one line each, in order.
std::vector<std::string> Lines(const InterfaceDescription& interface) {
  std::vector<std::string> lines;
  for (const bttest::MethodDescription& method : interface.methods) {
    lines.push_back("method " + method.name + ToText(method.in) + " ->" + ToText(method.out));
  }
  for (const bttest::SignalDescription& signal : interface.signals) {
    lines.push_back("signal " + signal.name + ToText(signal.arguments));
  }
  return lines;
}

TEST(Interface, OfTheLibraryIsThatOfTheDescriptionWithoutPropertiesOrAnnotations) {
  const GDBusInterfaceInfo* const info = com_zelk_linux_bluetooth_interface_info();
  EXPECT_EQ(info->ref_count, -1);
  EXPECT_STREQ(info->name, "com.zelk.linux.bluetooth");
  EXPECT_EQ(Lines(bttest::DescribeInterface(*info)), Lines(bttest::BluetoothInterface()));
  EXPECT_TRUE(info->properties == nullptr || info->properties[0] == nullptr);
  EXPECT_TRUE(info->annotations == nullptr || info->annotations[0] == nullptr);
  for (GDBusMethodInfo** method = info->methods; *method != nullptr; ++method) {
    EXPECT_TRUE((*method)->annotations == nullptr || (*method)->annotations[0] == nullptr) << (*method)->name;
  }
}

TEST(Interface, OverridesNoProperty) {
  // What reaches a class is the first free property number minus 1.
  const OwnedTypeClass<GObjectClass> objectClass(
      G_OBJECT_CLASS(g_type_class_ref(com_zelk_linux_bluetooth_skeleton_get_type())));
  EXPECT_EQ(com_zelk_linux_bluetooth_override_properties(objectClass.get(), 7), 6u);
}

TEST(Interface, TypesHaveTheirNamesAndParents) {
  EXPECT_STREQ(g_type_name(com_zelk_linux_bluetooth_get_type()), "ComZelkLinuxBluetooth");
  EXPECT_STREQ(g_type_name(com_zelk_linux_bluetooth_proxy_get_type()), "ComZelkLinuxBluetoothProxy");
  EXPECT_STREQ(g_type_name(com_zelk_linux_bluetooth_skeleton_get_type()), "ComZelkLinuxBluetoothSkeleton");
  EXPECT_EQ(g_type_parent(com_zelk_linux_bluetooth_proxy_get_type()), g_dbus_proxy_get_type());
  EXPECT_EQ(g_type_parent(com_zelk_linux_bluetooth_skeleton_get_type()),
            g_dbus_interface_skeleton_get_type());
}

TEST(Interface, SignalsAreKnownByHyphensAndUnderscores) {
  // The signals are there once the class is.
  const OwnedTypeClass<void> proxyClass(g_type_class_ref(com_zelk_linux_bluetooth_proxy_get_type()));
  const GType type = com_zelk_linux_bluetooth_get_type();
  for (const char* name :
       {"on-pbdownload-status", "on_pbdownload_status", "on-hidcalibration",
        "on-set-device-ooblink-key-changed", "handle-set-power", "handle_set_hidsend_xy"}) {
    EXPECT_NE(g_signal_lookup(name, type), 0u) << name;
  }
}

/// Exports a skeleton without any handler, calls one of its methods over the bus, and answers the error.
std::string CallWithoutHandler(const char* interface, const char* method, GVariant* arguments) {
  bttest::LoopThread loop(bttest::LoopThread::Context::DEFAULT);
  OwnedError error;
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "connecting");
  const OwnedObject<GDBusInterfaceSkeleton> skeleton(
      G_DBUS_INTERFACE_SKELETON(com_zelk_linux_bluetooth_skeleton_new()));
  g_dbus_interface_skeleton_export(skeleton.get(), connection.get(), "/com/zelk/linux/bluetooth",
                                   error.Out());
  bttest::ThrowIfSet(error, "exporting");
  OwnedError failure;
  const OwnedVariant reply(g_dbus_connection_call_sync(
      connection.get(), g_dbus_connection_get_unique_name(connection.get()), "/com/zelk/linux/bluetooth",
      interface, method, arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, failure.Out()));
  g_dbus_interface_skeleton_unexport(skeleton.get());
  return failure ? failure->message : "no error";
}

TEST(Skeleton, AnswersAMethodThatNobodyHandlesWithUnknownMethod) {
  bttest::BusDaemon bus;
  EXPECT_EQ(CallWithoutHandler("com.zelk.linux.bluetooth", "AcceptCall", nullptr),
            "GDBus.Error:org.freedesktop.DBus.Error.UnknownMethod: Method AcceptCall is not implemented on "
            "interface "
            "com.zelk.linux.bluetooth");
}

TEST(Skeleton, HasNoProperty) {
  bttest::BusDaemon bus;
  EXPECT_EQ(CallWithoutHandler("org.freedesktop.DBus.Properties", "Get",
                               g_variant_new("(ss)", "com.zelk.linux.bluetooth", "Power")),
            "GDBus.Error:org.freedesktop.DBus.Error.InvalidArgs: No such property \u201cPower\u201d");
}

/// What a running service says of itself.
std::string Introspect() {
  OwnedError error;
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "connecting");
  const OwnedVariant reply(
      g_dbus_connection_call_sync(connection.get(), "com.zelk.linux.bluetooth", "/com/zelk/linux/bluetooth",
                                  "org.freedesktop.DBus.Introspectable", "Introspect", nullptr,
                                  G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "introspecting");
  const char* xml = nullptr;
  g_variant_get(reply.get(), "(&s)", &xml);
  return xml;
}

bool ServiceIsThere() {
  try {
    Introspect();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

TEST(Interface, OfTheRunningServiceIsExactlyTheContract) {
  bttest::BusDaemon bus;
  bttest::ChildProcess service({"/app/bin/btservice"});
  ASSERT_TRUE(bttest::WaitUntil(ServiceIsThere)) << service.Errors();
  OwnedError error;
  const OwnedNodeInfo node(g_dbus_node_info_new_for_xml(Introspect().c_str(), error.Out()));
  bttest::ThrowIfSet(error, "parsing");
  const GDBusInterfaceInfo* const info =
      g_dbus_node_info_lookup_interface(node.get(), "com.zelk.linux.bluetooth");
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(Lines(bttest::DescribeInterface(*info)), Lines(bttest::BluetoothInterface()));
  EXPECT_TRUE(info->properties == nullptr || info->properties[0] == nullptr);
}

}  // namespace
