#include "btctl/bus/Diagnosis.h"

#include <cstdlib>

#include "btctl/bus/SessionBus.h"

namespace btctl {

Failure WhyNotStarted() {
  switch (LookAround()) {
    case Surroundings::NO_BUS:
      return std::getenv("DBUS_SESSION_BUS_ADDRESS") == nullptr
                 ? Failure(EXIT_NO_BUS, "there is no session bus: DBUS_SESSION_BUS_ADDRESS is not set",
                           "Run this in a session, or with 'dbus-run-session --'.")
                 : Failure(
                       EXIT_NO_BUS,
                       std::string("there is no session bus at ") + std::getenv("DBUS_SESSION_BUS_ADDRESS"),
                       "Is the bus daemon of this session still running?");
    case Surroundings::NO_SERVICE:
      return Failure(EXIT_NO_SERVICE, "the Bluetooth service is not running on this session bus",
                     "Start it on this bus: /app/bin/btservice &");
    case Surroundings::COMPLETE:
      break;
  }
  return Failure(EXIT_NO_SERVICE, "the Bluetooth service does not answer", "Try again, with --verbose.");
}

Failure ServiceIsGone() {
  return LookAround() == Surroundings::NO_BUS
             ? Failure(EXIT_SERVICE_GONE, "the session bus went away",
                       "Start again in a session that has a bus.")
             : Failure(EXIT_SERVICE_GONE, "the Bluetooth service went away",
                       "Start it again and check its state: the request may or may not have had an effect.");
}

}  // namespace btctl
