#include "btctl/sim/ControlHelp.h"

namespace btctl {
namespace {

struct KnownControl {
  const char* name;
  const char* help;
};

// clang-format off
constexpr KnownControl kControls[] = {
    {"list-devices", "Show the devices of the world"},
    {"add-device", "A device appears; it is described as in the JSON of a world"},
    {"set-in-range", "A device comes into range (on) or leaves it (off)"},
    {"lose-link", "The link to a device breaks; the device stays near"},
    {"request-pairing", "A device asks to be paired; the adapter has to be visible"},
    {"accept-pairing", "The device's user accepts the pairing"},
    {"reject-pairing", "The device's user refuses the pairing"},
    {"request-connection", "A device connects a profile: hfp, a2dp, spp, ..."},
    {"request-disconnection", "A device disconnects a profile"},
    {"request-projection", "A device asks for wireless projection"},
    {"set-signal", "Change the signal strength: 0 to 5 bars"},
    {"set-battery", "Change the battery: 0 to 5 bars"},
    {"set-operator", "Change the name of the network; '' loses it"},
    {"set-roaming", "The phone starts (on) or stops (off) roaming"},
    {"call", "Somebody calls the phone"},
    {"answer-call", "The called party answers"},
    {"hang-up", "The other end hangs up; 0: of all calls"},
    {"set-called-party", "How called parties react: answers, busy, no-answer"},
    {"set-contacts", "Replace the phone's contacts; as vCards: \"$(cat book.vcf)\""},
    {"add-call-log", "Add a call to the phone's log; it is described as in the JSON of a world"},
    {"set-tracks", "Replace the device's music; as the list of tracks in the JSON of a world"},
    {"play", "Somebody presses play on the device"},
    {"pause", "Somebody presses pause on the device"},
    {"send-message", "A message arrives; its handle is up to 16 hexadecimal digits"},
    {"change-message", "A message was sent, delivered, deleted, shifted, ..."},
    {"set-message-property", "Marking a message worked (on) or failed (off)"},
    {"send-serial", "The device sends bytes, in hexadecimal digits"},
    {"delay-answers", "Delay the next answers of a method; '*' means all methods"},
    {"fail-answers", "Let the next calls of a method fail with this error"},
    {"replace-answers", "Answer the next calls of a method with these values: '[<1>, <\"a\">]'"},
    {"drop-answers", "Never answer the next calls of a method"},
    {"answer-again", "Cancel the four faults above"},
    {"emit-signal", "Send a signal of the service with these values: '[<byte 1>]'"},
    {"corrupt-segment", "Write bytes into a shared segment"},
    {"leave-bus", "Leave the bus for some time"},
    {"die", "End the service at once, with that exit code"},
    {"get-time", "Show the simulated time and its speed"},
};
// clang-format on

}  // namespace

std::string HelpOfControl(const std::string& control) {
  for (const KnownControl& known : kControls) {
    if (control == known.name) {
      return known.help;
    }
  }
  return "";
}

std::vector<std::string> NamesOfControls() {
  std::vector<std::string> names;
  for (const KnownControl& control : kControls) {
    names.emplace_back(control.name);
  }
  return names;
}

std::vector<std::string> MembersOf(const std::string& answer) {
  if (answer == "devices") {
    return {"address", "name", "inRange", "paired", "connected"};
  }
  return {};
}

}  // namespace btctl
