#include "btctl/sim/SimulationControl.h"

#include <algorithm>

#include "btctl/base/Failure.h"
#include "btctl/base/Json.h"
#include "btctl/base/Nearest.h"
#include "btctl/bus/Diagnosis.h"
#include "btctl/bus/SessionBus.h"
#include "btctl/sim/ControlHelp.h"
#include "btctl/sim/Variants.h"
#include "glib/Owned.h"

namespace btctl {
namespace {

/// What the service has; throws a Failure if it is not there, or no simulation.
std::vector<ControlMethod> Controls() {
  if (LookAround() != Surroundings::COMPLETE) {
    throw WhyNotStarted();
  }
  std::vector<ControlMethod> controls = DescribeControls();
  if (controls.empty()) {
    throw Failure(EXIT_REFUSED, "the Bluetooth service has no simulation controls",
                  "Only the simulated service, btservice, has them.");
  }
  return controls;
}

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

ControlMethod Find(const std::string& control) {
  const std::vector<ControlMethod> controls = Controls();
  const auto found = std::find_if(controls.begin(), controls.end(), [&](const ControlMethod& method) {
    return control == method.name || control == CommandOf(method.name);
  });
  if (found == controls.end()) {
    throw Failure(EXIT_UNKNOWN_NAME, "there is no control '" + control + "'",
                  DidYouMean(control, NamesOfControls(), "'btctl sim' lists them."));
  }
  return *found;
}

OwnedVariant Pack(const ControlMethod& method, const std::vector<std::string>& values) {
  if (values.size() != method.in.size()) {
    std::string names;
    for (const ControlValue& argument : method.in) {
      names += " " + argument.name;
    }
    throw Failure(EXIT_USAGE,
                  CommandOf(method.name) + " takes " + std::to_string(method.in.size()) + " values, not " +
                      std::to_string(values.size()),
                  "They are: 'btctl sim " + CommandOf(method.name) + names + "'.");
  }
  std::vector<OwnedVariant> owned;  // until the tuple holds them
  std::vector<GVariant*> children;
  for (std::size_t i = 0; i < method.in.size(); ++i) {
    owned.push_back(ToVariant(values[i], method.in[i].type, method.in[i].name));
    children.push_back(owned.back().get());
  }
  return OwnedVariant(g_variant_new_tuple(children.data(), children.size()));
}

}  // namespace

Json ListControls() {
  Json controls = Json::array();
  for (const ControlMethod& method : Controls()) {
    Json arguments = Json::array();
    for (const ControlValue& argument : method.in) {
      arguments.push_back(argument.name);
    }
    const std::string control = CommandOf(method.name);
    controls.push_back({{"control", control}, {"arguments", arguments}, {"help", HelpOfControl(control)}});
  }
  return controls;
}

Json UseControl(const std::string& control, const std::vector<std::string>& values) {
  const ControlMethod method = Find(control);
  const OwnedVariant answer = CallControl(method, Pack(method, values));
  Json answers = Json::object();
  for (std::size_t i = 0; i < method.out.size() && i < g_variant_n_children(answer.get()); ++i) {
    const OwnedVariant child(g_variant_get_child_value(answer.get(), i));
    answers[method.out[i].name] = ToJson(child.get());
  }
  return answers;
}

}  // namespace btctl
