#ifndef SERVICE_APP_OPTIONS_H
#define SERVICE_APP_OPTIONS_H

#include <string>

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

/// The command line.
struct Options {
  double speed = 1;
  bool removeSegments = false;
  bool reserve = false;   ///< use up the small identifiers of segments, and do nothing else
  std::string world;      ///< name of a shipped world, or a file; empty: the built-in one
  std::string statePath;  ///< empty: nothing is kept
};

/// Fills options. Answers true to go on; otherwise the process is to end with exitCode, and what there was to
/// say has been said.
bool ParseOptions(int argc, char** argv, Options& options, int& exitCode);

}  // namespace btservice

#endif
