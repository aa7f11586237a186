#include "btctl/base/Failure.h"
#include "btctl/composed/Composed.h"
#include "btctl/sim/SimulationControl.h"

namespace btctl {
namespace {

using namespace arg;

Json Use(Context& context, const std::string& control, const std::vector<std::string>& values) {
  try {
    return context.session.Beside([=] { return UseControl(control, values); });
  } catch (const Failure& failure) {
    if (failure.Code() == EXIT_SERVICE_GONE && (control == "die" || control == "Die")) {
      return Json::object();  // as it was told to
    }
    throw;
  }
}

void Simulate(Context& context, const Given& given) {
  const std::string control = given[0];
  if (control.empty()) {
    context.output.ShowList("control", context.session.Beside([] { return ListControls(); }));
    return;
  }
  const std::vector<std::string> values = given.All(1);
  const Json answers = Use(context, control, values);
  if (answers.value("happened", true) == false) {
    throw Failure(EXIT_REFUSED, "that could not happen",
                  "Is the device there, and connected? See 'btctl sim list-devices'.");
  }
  Json answer{{"kind", "answer"}, {"command", "sim"}, {"control", control}};
  answer.update(answers);
  const bool isWorthTelling = !answers.empty() && !answers.contains("happened");
  if (context.output.IsJson() || isWorthTelling) {
    context.output.ShowAnswer(answer);
  }
}

}  // namespace

std::vector<Command> SimulationCommands() {
  Argument values = Text("VALUES", "what the control takes, in its order");
  values.isMany = true;
  values.isOptional = true;
  Command command;
  command.path = "sim";
  command.help = "Control the simulated service; without a control, list what there is";
  command.arguments = {Or(Text("CONTROL", "what to do"), ""), values};
  command.run = Simulate;
  return {command};
}

}  // namespace btctl
