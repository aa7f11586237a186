#include "btctl/composed/AllCommands.h"

#include <iterator>
#include <map>

#include "btctl/commands/Tables.h"
#include "btctl/composed/Composed.h"

namespace btctl {
namespace {

void Append(std::vector<Command>& all, std::vector<Command> commands) {
  std::move(commands.begin(), commands.end(), std::back_inserter(all));
}

std::vector<Command> MakeAll() {
  // In the order of the help: what is wanted first, and what is about btctl itself last.
  std::vector<Command> all;
  all.reserve(200);
  for (const auto commands :
       {OverviewCommands, DeviceCommands, PowerCommands, ScanCommands, PairCommands, DownloadCommands}) {
    Append(all, commands());
  }
  for (const auto requests :
       {ComRequests, PhoneRequests, PbapRequests, MediaRequests, MessageRequests, SppRequests, BleRequests}) {
    for (Request& request : requests()) {
      all.push_back(AsCommand(std::move(request)));
    }
  }
  for (const auto commands : {EventCommands, SimulationCommands, ReferenceCommands}) {
    Append(all, commands());
  }
  return all;
}

}  // namespace

const std::vector<Command>& AllCommands() {
  static const std::vector<Command> commands = MakeAll();
  return commands;
}

std::string HelpOfGroup(const std::string& group) {
  static const std::map<std::string, std::string> help{
      {"attribute", "Texts of the adapter: its name, its PIN, ..."},
      {"ble", "Low energy; the service offers none yet"},
      {"ble whitelist", "The white list of low energy"},
      {"browse", "The folders of the player"},
      {"call", "Calls"},
      {"call audio", "Where the sound of the call is"},
      {"capability", "Switches of the adapter: auto-connect, auto-answer, ..."},
      {"contacts", "The phone book"},
      {"devices", "Paired and found devices"},
      {"hid", "Touch and key input to a phone"},
      {"log", "The call logs"},
      {"message", "Messages; the service offers none yet"},
      {"music", "The player"},
      {"music forward", "Winding forward"},
      {"music rewind", "Winding back"},
      {"pairing", "Answers to what devices ask"},
      {"phone", "The connected phone"},
      {"power", "Power of the adapter"},
      {"profiles", "What may be connected"},
      {"projection", "Wireless projection"},
      {"ringtone", "Trying out ring tones"},
      {"spp", "Serial channels"},
      {"voice", "The voice recognition of the phone"},
  };
  const auto found = help.find(group);
  return found != help.end() ? found->second : std::string();
}

}  // namespace btctl
