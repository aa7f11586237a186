// Logs one line of each level, the first from a static initialiser. Its output shows which log system and
// which level the environment chose when the platform library was loaded.

#include <mwp/MWPLog.h>

#define MWP_LOG_SOURCE "tests/program"

namespace {

bool LogEarly() {
  MWPLogWrite({MWP_LOG_SOURCE, "LogEarly", 10}, MWP_LOG_ERROR, "line early");
  return true;
}

const bool loggedEarly = LogEarly();

}  // namespace

int main() {
  MWPLogWrite({MWP_LOG_SOURCE, "main", 20}, MWP_LOG_DEBUG, "line debug");
  MWPLogWrite({MWP_LOG_SOURCE, "main", 21}, MWP_LOG_INFO, "line info");
  MWPLogWrite({MWP_LOG_SOURCE, "main", 22}, MWP_LOG_WARNING, "line warning");
  MWPLogWrite({MWP_LOG_SOURCE, "main", 23}, MWP_LOG_ERROR, "line error \xff");
  return loggedEarly ? 0 : 1;
}
