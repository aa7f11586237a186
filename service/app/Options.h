#ifndef SERVICE_APP_OPTIONS_H
#define SERVICE_APP_OPTIONS_H

#include <string>

#include "service/app/ExitCodes.h"
#include "service/app/StackProvider.h"

namespace btservice {

/// The command line, but for what is the stack provider's.
struct Options {
  bool removeSegments = false;  ///< remove the segments at the end: for tests
  bool reserve = false;         ///< use up the small identifiers of segments, and do nothing else
  std::string statePath;        ///< empty: nothing is kept
};

/// Fills options, and the provider's own. Answers true to go on; otherwise the process is to end with
/// exitCode, and what there was to say has been said.
bool ParseOptions(int argc, char** argv, StackProvider& provider, Options& options, int& exitCode);

}  // namespace btservice

#endif
