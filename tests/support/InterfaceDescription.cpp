#include "support/InterfaceDescription.h"

#include <algorithm>
#include <stdexcept>

#include "support/GlibHelpers.h"

namespace bttest {

namespace {

/// The elements of a null-terminated array of pointers, which may be missing as a whole, each converted.
template <typename Info, typename Convert>
auto All(Info** infos, Convert convert) {
  std::vector<decltype(convert(**infos))> all;
  for (Info** info = infos; info != nullptr && *info != nullptr; ++info) {
    all.push_back(convert(**info));
  }
  return all;
}

ArgumentDescription DescribeArgument(const GDBusArgInfo& info) { return {info.name, info.signature}; }

MethodDescription DescribeMethod(const GDBusMethodInfo& info) {
  return {info.name, All(info.in_args, DescribeArgument), All(info.out_args, DescribeArgument)};
}

SignalDescription DescribeSignal(const GDBusSignalInfo& info) {
  return {info.name, All(info.args, DescribeArgument)};
}

template <typename Description>
const Description& Named(const std::vector<Description>& all, const std::string& name) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Description& description) { return description.name == name; });
  if (found == all.end()) {
    throw std::out_of_range("the interface does not describe '" + name + "'");
  }
  return *found;
}

}  // namespace

std::string TupleSignature(const Arguments& arguments) {
  std::string signature = "(";
  for (const ArgumentDescription& argument : arguments) {
    signature += argument.signature;
  }
  return signature + ")";
}

const MethodDescription& InterfaceDescription::Method(const std::string& wanted) const {
  return Named(methods, wanted);
}

const SignalDescription& InterfaceDescription::Signal(const std::string& wanted) const {
  return Named(signals, wanted);
}

InterfaceDescription DescribeInterface(const GDBusInterfaceInfo& info) {
  return {info.name, All(info.methods, DescribeMethod), All(info.signals, DescribeSignal)};
}

std::vector<InterfaceDescription> ParseInterfaces(const std::string& xml) {
  OwnedError error;
  const OwnedNodeInfo node(g_dbus_node_info_new_for_xml(xml.c_str(), error.Out()));
  ThrowIfSet(error, "parsing introspection data");
  std::vector<InterfaceDescription> interfaces = All(node->interfaces, DescribeInterface);
  if (interfaces.empty()) {
    throw std::runtime_error("introspection data without an interface");
  }
  return interfaces;
}

std::vector<InterfaceDescription> ReadInterfaces(const std::string& fileName) {
  OwnedError error;
  OwnedText text;
  g_file_get_contents(fileName.c_str(), text.Out(), nullptr, error.Out());
  ThrowIfSet(error, "reading an interface description");
  return ParseInterfaces(text.get());
}

InterfaceDescription ParseInterface(const std::string& xml) { return ParseInterfaces(xml).front(); }

InterfaceDescription ReadInterface(const std::string& fileName) { return ReadInterfaces(fileName).front(); }

const InterfaceDescription& BluetoothInterface() {
  static const InterfaceDescription description = ReadInterface(BTTEST_INTERFACE_XML);
  return description;
}

const InterfaceDescription& InterfaceOfControl(const std::string& control) {
  static const std::vector<InterfaceDescription> interfaces = ReadInterfaces(BTTEST_CONTROLS_XML);
  for (const InterfaceDescription& interface : interfaces) {
    for (const MethodDescription& method : interface.methods) {
      if (method.name == control) {
        return interface;
      }
    }
  }
  throw std::out_of_range("the simulation has no control '" + control + "'");
}

}  // namespace bttest
