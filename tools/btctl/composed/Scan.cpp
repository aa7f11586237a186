#include <bluetooth/MWPBtCom.h>

#include "btctl/base/Failure.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/composed/Composed.h"
#include "btctl/composed/Search.h"

namespace btctl {
namespace {

using namespace arg;

void EndScan(Context& context) {
  MakeRequest(context.session, Value(), CallOf([] { return MWPBtCom().SetScanAction(0); }));
}

/// Shows the events that come meanwhile. None of them names the devices that are found.
void Scan(Context& context, const Given& given) {
  SearchFor(context, MillisecondsOf(given[0]), [&](const Event& event) {
    if (!context.session.Events().HasOwnQuestion()) {
      context.output.ShowEvent(event);
    }
  });
}

}  // namespace

void SearchFor(Context& context, std::chrono::milliseconds atMost, const EventSink& sink) {
  bool hasEnded = false;
  const EventHub::Subscription events(context.session.Events(), [&](const Event& event) {
    sink(event);
    hasEnded = event.Name() == "OnScanStatusChanged" && event.Has("status", "idle");
  });
  try {  // from the request on: it may have reached the service although its answer has not come
    MakeRequest(context.session, Accepted(), CallOf([] { return MWPBtCom().SetScanAction(1); }),
                {AdapterIsOff(), SearchIsRunning()});
    if (!context.session.WaitUntil([&] { return hasEnded; }, atMost)) {
      EndScan(context);
      context.session.WaitUntil([&] { return hasEnded; }, std::chrono::seconds(1));
    }
  } catch (const Failure& failure) {
    if (failure.Code() == EXIT_INTERRUPTED || failure.Code() == EXIT_INTERNAL) {
      context.session.Begin(std::chrono::seconds(2));  // to end what was begun; then it is over
      EndScan(context);
    }
    throw;
  }
}

std::vector<Command> ScanCommands() {
  Command command;
  command.path = "scan";
  command.help = "Search for devices for a time, and show the events that come";
  command.arguments = {Or(Text("--seconds", "how long"), "10")};
  command.methods = {"MWPBtCom::SetScanAction"};
  command.patience = Patience::FOR_EVER;
  command.run = Scan;
  command.showsEvents = true;
  return {command};
}

}  // namespace btctl
