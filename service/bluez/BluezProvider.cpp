#include "service/bluez/BluezProvider.h"

#include "service/bluez/BluezStack.h"

namespace btservice::bluez {

std::string BluezProvider::Summary() const {
  return "The Bluetooth service of a head unit on the session bus, under the name\n"
         "com.zelk.linux.bluetooth, over BlueZ, the Bluetooth stack of Linux.";
}

std::string BluezProvider::Description() const {
  return "The stack bluez drives the first Bluetooth adapter of this machine by BlueZ's daemon on the\n"
         "system bus. While there is no bus, no daemon or no adapter, Bluetooth is off, and the\n"
         "service waits for them. So far it can do power, attributes, visibility and the search for "
         "devices;\n"
         "all other requests are refused.\n"
         "\n";
}

ProvidedStack BluezProvider::MakeStack(const ServiceParts& parts, const StackStart& start) {
  return {std::make_unique<BluezStack>(parts.scheduler, start)};
}

}  // namespace btservice::bluez
