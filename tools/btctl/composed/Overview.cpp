#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtPhone.h>

#include <algorithm>

#include "btctl/base/Failure.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/composed/Composed.h"

// What several requests together show.

namespace btctl {
namespace {

using namespace MWPBtType;
using namespace arg;

std::string AttributeOf(Context& context, Attribute attribute) {
  const Reply reply = MakeRequest(context.session, Value(), CallOf([attribute] {
                                    std::string value;
                                    MWPBtCom().GetAttribute(attribute, value);
                                    return value;
                                  }));
  return reply.result;
}

std::string NameOfDevice(Context& context, const std::string& address) {
  return MakeRequest(context.session, Value(),
                     CallOf([address] { return MWPBtCom().GetRemotePairDeviceName(address); }))
      .result;
}

/// What a connection is: its state, and which device has it.
Json ConnectionOf(Context& context, const Json& state) {
  Json connection = state;
  const std::string address = state["address"];
  connection["name"] = address.empty() ? "" : NameOfDevice(context, address);
  return connection;
}

void ShowStatus(Context& context, const Given&) {
  const Json power =
      MakeRequest(context.session, Value(), CallOf([] { return MWPBtCom().GetPowerStatus(); })).result;
  const Json phone =
      MakeRequest(context.session, Value(), CallOf([] { return MWPBtPhone().GetPhoneConnectionState(); }))
          .result;
  const Json player =
      MakeRequest(context.session, Value(), CallOf([] { return MWPBtMedia().GetMediaConnectionState(); }))
          .result;
  context.output.ShowAnswer({{"kind", "answer"},
                             {"command", "status"},
                             {"power", WordsOf<PowerStatus>().Show(power.get<int>())},
                             {"name", AttributeOf(context, BT_ATTR_LOCAL_NAME)},
                             {"address", AttributeOf(context, BT_ATTR_LOCAL_ADDRESS)},
                             {"phone", ConnectionOf(context, phone)},
                             {"player", ConnectionOf(context, player)}});
}

/// Asks the service to report its state as events, and shows these as they arrive.
void ShowReport(Context& context, const Given& given) {
  const EventHub::OwnQuestion own(context.session.Events());
  const EventHub::Subscription events(context.session.Events(),
                                      [&](const Event& event) { context.output.ShowEvent(event); });
  MakeRequest(context.session, Nothing(), CallOf([] { MWPBtCom().GetBluetoothServiceStatus(); }));
  const auto atMost = MillisecondsOf(given[0]);
  context.session.WaitUntil([] { return false; }, atMost);
}

void ListCapabilities(Context& context, const Given&) {
  Json capabilities = Json::array();
  for (const EnumWord& word : WordsOf<Capability>().Words()) {
    const auto capability = static_cast<Capability>(word.value);
    const Reply value = MakeRequest(context.session, Value(),
                                    CallOf([capability] { return MWPBtCom().GetCapability(capability); }));
    capabilities.push_back(
        {{"capability", word.text}, {"value", SwitchWords().Show(value.result.get<int>())}});
  }
  context.output.ShowList("capability", capabilities);
}

void ListAttributes(Context& context, const Given&) {
  Json attributes = Json::array();
  for (const EnumWord& word : WordsOf<Attribute>().Words()) {
    attributes.push_back(
        {{"attribute", word.text}, {"value", AttributeOf(context, static_cast<Attribute>(word.value))}});
  }
  context.output.ShowList("attribute", attributes);
}

}  // namespace

std::vector<Command> OverviewCommands() {
  return {
      {"status", "Show an overview", {}, {}, Patience::A_WHILE, ShowStatus},
      {"report",
       "Ask the service to report its state as events",
       {Or(Text("--seconds", "how long to listen to the report"), "0.5")},
       {"MWPBtCom::GetBluetoothServiceStatus"},
       Patience::A_WHILE,
       ShowReport,
       true},
      {"capability list", "Show all capabilities", {}, {}, Patience::A_WHILE, ListCapabilities},
      {"attribute list", "Show all attributes of the adapter", {}, {}, Patience::A_WHILE, ListAttributes},
  };
}

}  // namespace btctl
