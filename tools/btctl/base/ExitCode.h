#ifndef TOOLS_BTCTL_BASE_EXITCODE_H
#define TOOLS_BTCTL_BASE_EXITCODE_H

namespace btctl {

/// How the program ends. Scripts rely on the values: a meaning is never changed, only added.
enum ExitCode : int {
  EXIT_OK = 0,
  EXIT_REFUSED = 1,        ///< the service said no, or could not do it
  EXIT_USAGE = 2,          ///< the command line is wrong
  EXIT_NO_BUS = 3,         ///< there is no session bus
  EXIT_NO_SERVICE = 4,     ///< nobody on the bus is the Bluetooth service
  EXIT_SERVICE_GONE = 5,   ///< the service, or the bus, went away in the middle
  EXIT_TIMED_OUT = 6,      ///< no answer, or no outcome, in time
  EXIT_BAD_ADDRESS = 7,    ///< not of the form of a Bluetooth address
  EXIT_UNKNOWN_NAME = 8,   ///< nothing is called that: a contact, an event, a word for a value
  EXIT_INTERNAL = 9,       ///< none of the above: a full disk, a mistake in this program
  EXIT_INTERRUPTED = 130,  ///< Ctrl-C was pressed before there was an answer
  EXIT_TERMINATED = 143,   ///< SIGTERM came; as of any program, so in no list
};

struct ExitCodeDescription {
  ExitCode code;
  const char* name;  ///< in the JSON object of an error
  const char* meaning;
};

constexpr ExitCodeDescription kExitCodes[] = {
    {EXIT_OK, "ok", "done"},
    {EXIT_REFUSED, "refused", "the service refused the request or failed"},
    {EXIT_USAGE, "usage", "the command line is wrong"},
    {EXIT_NO_BUS, "no-bus", "there is no session bus"},
    {EXIT_NO_SERVICE, "no-service", "the Bluetooth service is not running"},
    {EXIT_SERVICE_GONE, "service-gone", "the service or the bus went away during the command"},
    {EXIT_TIMED_OUT, "timed-out", "there was no answer or no result in time"},
    {EXIT_BAD_ADDRESS, "bad-address", "an address does not have the form 00:1A:7D:DA:71:13"},
    {EXIT_UNKNOWN_NAME, "unknown-name", "no contact, event or value has that name"},
    {EXIT_INTERNAL, "internal", "anything else"},
    {EXIT_INTERRUPTED, "interrupted", "Ctrl-C was pressed before there was an answer"},
};

constexpr const char* NameOf(ExitCode code) {
  for (const ExitCodeDescription& known : kExitCodes) {
    if (known.code == code) {
      return known.name;
    }
  }
  return "internal";
}

}  // namespace btctl

#endif
