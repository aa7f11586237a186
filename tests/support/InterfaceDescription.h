#ifndef TESTS_SUPPORT_INTERFACEDESCRIPTION_H
#define TESTS_SUPPORT_INTERFACEDESCRIPTION_H

#include <string>
#include <vector>

#include <gio/gio.h>

namespace bttest {

struct ArgumentDescription {
  std::string name;
  std::string signature;
};

using Arguments = std::vector<ArgumentDescription>;

/// The signature of a tuple of the arguments: "(yy)".
std::string TupleSignature(const Arguments& arguments);

struct MethodDescription {
  std::string name;
  Arguments in;
  Arguments out;
};

struct SignalDescription {
  std::string name;
  Arguments arguments;
};

/// An interface as its XML describes it, so that tests are driven by that.
struct InterfaceDescription {
  std::string name;
  std::vector<MethodDescription> methods;
  std::vector<SignalDescription> signals;

  /// Throw if there is none of that name.
  const MethodDescription& Method(const std::string& wanted) const;
  const SignalDescription& Signal(const std::string& wanted) const;
};

/// The interfaces in a text of introspection data. Throws if there is none.
std::vector<InterfaceDescription> ParseInterfaces(const std::string& xml);
/// The same of a file.
std::vector<InterfaceDescription> ReadInterfaces(const std::string& fileName);
/// The first of them.
InterfaceDescription ParseInterface(const std::string& xml);
InterfaceDescription ReadInterface(const std::string& fileName);
/// What g_dbus_node_info_lookup_interface() and its kin give.
InterfaceDescription DescribeInterface(const GDBusInterfaceInfo& info);

/// The Bluetooth service's interface, read once from the description in the tree.
const InterfaceDescription& BluetoothInterface();
/// The interface that has a control of the simulation, by the description in the tree. Throws if none has it.
const InterfaceDescription& InterfaceOfControl(const std::string& control);

}  // namespace bttest

#endif
