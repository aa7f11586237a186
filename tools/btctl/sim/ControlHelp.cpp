#include "btctl/sim/ControlHelp.h"

namespace btctl {
namespace {

struct Control {
  const char* name;
  const char* help;
};

// clang-format off
constexpr Control kControls[] = {
    {"add-device", "A device appears; it is described as in the JSON of a world"},
    {"set-in-range", "A device comes into range (on) or leaves it (off)"},
    {"lose-link", "The link to a device breaks; the device stays near"},
    {"request-pairing", "A device asks to be paired; the adapter has to be visible"},
    {"reject-pairing", "The person at the device refuses the pairing"},
    {"request-connection", "A device connects a profile: hfp, a2dp, spp, ..."},
    {"request-disconnection", "A device disconnects a profile"},
    {"request-projection", "A device asks for wireless projection"},
    {"set-signal", "Change the signal strength: 0 to 5 bars"},
    {"set-battery", "Change the battery: 0 to 5 bars"},
    {"set-operator", "Change the name of the network; '' loses it"},
    {"set-roaming", "The phone roams (on) or is at home (off)"},
    {"call", "Somebody calls the phone"},
    {"answer-call", "Whoever was called answers"},
    {"hang-up", "The other end hangs up; 0: of all calls"},
    {"set-called-party", "How those behave who are called: answers, busy, no-answer"},
    {"play", "Somebody presses play at the device"},
    {"pause", "Somebody presses pause at the device"},
    {"send-message", "A message arrives; its handle is up to 16 hexadecimal digits"},
    {"change-message", "A message was sent, delivered, deleted, shifted, ..."},
    {"set-message-property", "Marking a message worked (on) or failed (off)"},
    {"send-serial", "The device sends bytes, in hexadecimal digits"},
    {"delay-answers", "The next answers of a method come later; '*' is all methods"},
    {"fail-answers", "The next calls of a method fail with that error"},
    {"replace-answers", "The next calls of a method are answered with these values: '[<1>, <\"a\">]'"},
    {"drop-answers", "The next calls of a method are never answered"},
    {"answer-again", "Take the four above back"},
    {"emit-signal", "Send a signal of the service with these values: '[<byte 1>]'"},
    {"corrupt-segment", "Write bytes into a shared segment"},
    {"leave-bus", "Give up the name on the bus for some time"},
    {"die", "End the service at once, with that exit code"},
    {"list-devices", "Show the devices of the world"},
    {"get-time", "Tell the simulated time, and how fast it runs"},
};
// clang-format on

}  // namespace

std::string HelpOfControl(const std::string& control) {
  for (const Control& known : kControls) {
    if (control == known.name) {
      return known.help;
    }
  }
  return "";
}

std::vector<std::string> NamesOfControls() {
  std::vector<std::string> names;
  for (const Control& control : kControls) {
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
