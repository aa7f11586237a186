#include <bluetooth/MWPBtCom.h>

#include "btctl/base/Failure.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/composed/Composed.h"

namespace btctl {
namespace {

using namespace MWPBtType;

/// The library does not pass the request on if the adapter is in that state or on its way to it, and answers
/// 0 as it does for a refusal: the state shows which of the two it was.
PowerStatus StatusAfterRequest(Context& context, bool on) {
  if (MakeRequest(context.session, Value(), CallOf([on] { return MWPBtCom().SetPower(on ? 1 : 0); }))
          .result != 0) {
    return on ? BT_POWER_TURNING_ON : BT_POWER_TURNING_OFF;
  }
  const Reply status =
      MakeRequest(context.session, Value(), CallOf([] { return MWPBtCom().GetPowerStatus(); }));
  return static_cast<PowerStatus>(status.result.get<int>());
}

void SetPower(Context& context, const std::string& path, bool on) {
  const WordTable& words = WordsOf<PowerStatus>();
  const PowerStatus wanted = on ? BT_POWER_ON : BT_POWER_OFF;
  const PowerStatus onTheWay = on ? BT_POWER_TURNING_ON : BT_POWER_TURNING_OFF;
  const OutcomeWatch watch(context.session.Events(), OutcomeOf("SetPower", on ? 1 : 0), Given({}));
  PowerStatus status = StatusAfterRequest(context, on);
  if (status != wanted && status != onTheWay) {
    throw Refused();
  }
  if (status == onTheWay && context.options.waits) {
    Follow(context, watch);
    status = wanted;
  }
  context.output.ShowAnswer({{"kind", "answer"}, {"command", path}, {"result", words.Show(status)}});
}

Command PowerCommand(const std::string& path, const std::string& help, bool on) {
  Command command;
  command.path = path;
  command.help = help;
  command.methods = {"MWPBtCom::SetPower"};
  command.run = [path, on](Context& context, const Given&) { SetPower(context, path, on); };
  return command;
}

}  // namespace

std::vector<Command> PowerCommands() {
  return {PowerCommand("power on", "Switch the adapter on", true),
          PowerCommand("power off", "Switch the adapter off", false)};
}

}  // namespace btctl
