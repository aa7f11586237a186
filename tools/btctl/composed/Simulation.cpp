#include "btctl/base/Failure.h"
#include "btctl/base/Json.h"
#include "btctl/composed/Composed.h"
#include "btctl/output/Output.h"
#include "btctl/session/Session.h"
#include "btctl/sim/ControlHelp.h"
#include "btctl/sim/SimulationControl.h"

namespace btctl {
namespace {

using namespace arg;

enum SimPlace : std::size_t { CONTROL, VALUES };

Json Use(Context& context, const std::string& control, const std::vector<std::string>& values) {
  try {
    return context.session.Beside([=] { return UseControl(control, values); });
  } catch (const Failure& failure) {
    if (failure.Code() == EXIT_SERVICE_GONE && (control == "die" || control == "Die")) {
      return Json::object();  // as was wanted
    }
    throw;
  }
}

/// An answer that is a list of records, with names for their members.
Json RecordsOf(const Json& rows, const std::vector<std::string>& members) {
  Json records = Json::array();
  for (const Json& row : rows) {
    Json& record = records.emplace_back(Json::object());
    for (std::size_t i = 0; i < row.size() && i < members.size(); ++i) {
      record[members[i]] = row[i];
    }
  }
  return records;
}

void Simulate(Context& context, const Given& given) {
  const std::string control = given[CONTROL];
  if (control.empty()) {
    context.output.ShowList("control", context.session.Beside([] { return ListControls(); }));
    return;
  }
  const Json answers = Use(context, control, given.All(VALUES));
  if (!answers.value("happened", true)) {
    throw Failure(EXIT_REFUSED, "the control had no effect",
                  "Is the device there, and connected? See 'btctl sim list-devices'.");
  }
  if (answers.contains("devices")) {
    context.output.ShowList("simulated-device", RecordsOf(answers["devices"], MembersOf("devices")));
    return;
  }
  Json answer{{"kind", "answer"}, {"command", "sim"}, {"control", control}};
  answer.update(answers);
  if (answers.empty()) {
    answer["happened"] = true;
  }
  context.output.ShowAnswer(answer);
}

}  // namespace

std::vector<Command> SimulationCommands() {
  Argument control = Or(Text("CONTROL", "what to do"), "");
  control.meaning = Meaning::CONTROL;
  Argument values = Text("VALUES", "what the control takes, in its order");
  values.meaning = Meaning::ADDRESS;  // of most controls, the first
  values.isMany = true;
  values.isOptional = true;
  Command command;
  command.path = "sim";
  command.help = "Control the simulated service; without a control, list what there is";
  command.arguments = {control, values};
  command.run = Simulate;
  return {command};
}

}  // namespace btctl
