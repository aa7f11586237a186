#ifndef SERVICE_APP_EXITCODES_H
#define SERVICE_APP_EXITCODES_H

namespace btservice {

/// How the process ends.
enum ExitCode : int {
  EXIT_ENDED = 0,         ///< on SIGTERM or SIGINT, or because the bus went away
  EXIT_USAGE = 2,         ///< the command line makes no sense
  EXIT_NAME_TAKEN = 3,    ///< another service runs on this bus
  EXIT_NO_BUS = 4,        ///< there is no session bus
  EXIT_BAD_WORLD = 5,     ///< the world's file cannot be read or makes no sense
  EXIT_NOT_RESERVED = 6,  ///< the small identifiers of segments could not be used up
};

/// Says what is wrong with the command line, and returns EXIT_USAGE.
int FailUsage(const char* message);

}  // namespace btservice

#endif
