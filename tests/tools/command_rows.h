#ifndef TESTS_TOOLS_COMMAND_ROWS_H
#define TESTS_TOOLS_COMMAND_ROWS_H

#include <string>
#include <vector>

namespace bttest {

/// A command line and the calls that it makes, as texts of the recorder, when the service accepts everything.
struct CommandRow {
  std::vector<std::string> words;
  std::vector<std::string> calls;
  int code = 0;
};

/// Those that are written by hand.
const std::vector<CommandRow>& CommandRows();
/// Those, and one for each other command that calls one method of the library.
const std::vector<CommandRow>& AllCommandRows();

}  // namespace bttest

#endif
