#include "btctl/sim/SimulationControl.h"

#include <gio/gio.h>

#include "btctl/base/Failure.h"
#include "btctl/base/Nearest.h"
#include "btctl/session/Diagnosis.h"
#include "btctl/sim/ControlHelp.h"
#include "btctl/sim/Variants.h"
#include "protocol/BusNames.h"

namespace btctl {
namespace {

constexpr const char* kInterfacePrefix =
    "com.zelk.";  // unlike the bus's own interfaces, which all objects have
constexpr int kTimeoutMs = 25000;

Failure NoControls() {
  return {EXIT_REFUSED, "the Bluetooth service has no simulation controls",
          "Only the simulated service, btservice, has them."};
}

/// The shared connection, and the description of the controls that the service gives.
class Control {
 public:
  Control() {
    if (LookAround() != Surroundings::COMPLETE) {
      throw WhyNotStarted();
    }
    m_bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    g_autoptr(GVariant) answer =
        Call("org.freedesktop.DBus.Introspectable", "Introspect", nullptr, G_VARIANT_TYPE("(s)"));
    const char* xml = nullptr;
    g_variant_get(answer, "(&s)", &xml);
    m_node = g_dbus_node_info_new_for_xml(xml, nullptr);
    for (GDBusInterfaceInfo** at = m_node->interfaces; at != nullptr && *at != nullptr; ++at) {
      m_interface = g_str_has_prefix((*at)->name, kInterfacePrefix) != FALSE ? *at : m_interface;
    }
    if (m_interface == nullptr) {
      throw NoControls();
    }
  }
  ~Control() {
    g_clear_pointer(&m_node, g_dbus_node_info_unref);
    g_clear_object(&m_bus);
  }
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const GDBusInterfaceInfo& Interface() const { return *m_interface; }

  /// Throws a Failure with what the service says is wrong.
  GVariant* Call(const char* interface, const char* method, GVariant* arguments, const GVariantType* type) {
    g_autoptr(GError) error = nullptr;
    GVariant* const answer =
        g_dbus_connection_call_sync(m_bus, kServiceName, kControlPath, interface, method, arguments, type,
                                    G_DBUS_CALL_FLAGS_NONE, kTimeoutMs, nullptr, &error);
    if (answer == nullptr) {
      if (LookAround() != Surroundings::COMPLETE) {
        throw ServiceIsGone();
      }
      g_dbus_error_strip_remote_error(error);
      throw Failure(EXIT_REFUSED, std::string(method) + ": " + error->message);
    }
    return answer;
  }

 private:
  GDBusConnection* m_bus = nullptr;
  GDBusNodeInfo* m_node = nullptr;
  GDBusInterfaceInfo* m_interface = nullptr;
};

/// "lose-link" for "LoseLink".
std::string CommandOf(const std::string& method) {
  std::string command;
  for (const char c : method) {
    const bool isUpper = g_ascii_isupper(c) != FALSE;
    command += isUpper && !command.empty() ? "-" : "";
    command += static_cast<char>(g_ascii_tolower(c));
  }
  return command;
}

std::vector<const GDBusArgInfo*> ArgumentsOf(GDBusArgInfo* const* arguments) {
  std::vector<const GDBusArgInfo*> all;
  for (; arguments != nullptr && *arguments != nullptr; ++arguments) {
    all.push_back(*arguments);
  }
  return all;
}

const GDBusMethodInfo& Find(const GDBusInterfaceInfo& interface, const std::string& control) {
  for (GDBusMethodInfo** at = interface.methods; at != nullptr && *at != nullptr; ++at) {
    if (control == (*at)->name || control == CommandOf((*at)->name)) {
      return **at;
    }
  }
  throw Failure(EXIT_UNKNOWN_NAME, "there is no control '" + control + "'",
                DidYouMean(control, NamesOfControls(), "'btctl sim' lists them."));
}

GVariant* Pack(const GDBusMethodInfo& method, const std::vector<std::string>& values) {
  const auto arguments = ArgumentsOf(method.in_args);
  if (values.size() != arguments.size()) {
    std::string names;
    for (const GDBusArgInfo* const argument : arguments) {
      names += std::string(" ") + argument->name;
    }
    throw Failure(EXIT_USAGE,
                  CommandOf(method.name) + " takes " + std::to_string(arguments.size()) + " values, not " +
                      std::to_string(values.size()),
                  "They are: 'btctl sim " + CommandOf(method.name) + names + "'.");
  }
  std::vector<VariantPtr> owned;  // until the tuple holds them
  std::vector<GVariant*> children;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    owned.push_back(ToVariant(values[i], arguments[i]->signature, arguments[i]->name));
    children.push_back(owned.back().get());
  }
  return g_variant_new_tuple(children.data(), children.size());
}

}  // namespace

Json ListControls() {
  const Control control;
  Json controls = Json::array();
  for (GDBusMethodInfo** at = control.Interface().methods; at != nullptr && *at != nullptr; ++at) {
    Json arguments = Json::array();
    for (const GDBusArgInfo* const argument : ArgumentsOf((*at)->in_args)) {
      arguments.push_back(argument->name);
    }
    const std::string control = CommandOf((*at)->name);
    controls.push_back({{"control", control}, {"arguments", arguments}, {"help", HelpOfControl(control)}});
  }
  return controls;
}

Json UseControl(const std::string& name, const std::vector<std::string>& values) {
  Control control;
  const GDBusMethodInfo& method = Find(control.Interface(), name);
  g_autoptr(GVariant) answer =
      control.Call(control.Interface().name, method.name, Pack(method, values), nullptr);
  Json answers = Json::object();
  const auto outs = ArgumentsOf(method.out_args);
  for (std::size_t i = 0; i < outs.size() && i < g_variant_n_children(answer); ++i) {
    g_autoptr(GVariant) child = g_variant_get_child_value(answer, i);
    answers[outs[i]->name] = ToJson(child);
  }
  return answers;
}

}  // namespace btctl
