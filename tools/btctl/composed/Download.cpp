#include <bluetooth/MWPBtPbap.h>

#include "btctl/commands/Request.h"
#include "btctl/composed/Composed.h"
#include "btctl/events/Event.h"
#include "btctl/events/EventHub.h"
#include "btctl/output/Output.h"
#include "btctl/session/Session.h"

namespace btctl {
namespace {

using namespace arg;

Request DownloadRequest() {
  return {"contacts download",
          "Download the phone book or the call logs from the phone",
          BTCTL_METHOD(MWPBtPbap, StartPhoneBookDownload),
          {Or(OneOf("--type", WordsOf<MWPBtType::PbapType>()), "all")},
          Accepted(),
          OutcomeOf("StartPhoneBookDownload"),
          {AdapterIsOff(), NoPhoneIsConnected(), DownloadIsUnderWay()}};
}

}  // namespace

std::vector<Command> DownloadCommands() {
  Command command = AsCommand(DownloadRequest());
  const auto run = command.run;
  command.run = [run](Context& context, const Given& given) {
    const EventHub::Subscription progress(context.session.Events(), [&](const Event& event) {
      if (event.Name() == "OnPbDownloadCountChanged") {
        context.output.ShowProgress(event.Value("current").number.value(),
                                    event.Value("total").number.value());
      }
    });
    run(context, given);
  };
  command.patience = Patience::FOR_EVER;  // a large phone book takes minutes
  return {command};
}

}  // namespace btctl
