#include "service/app/Options.h"

#include <cstdio>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "glib/Owned.h"
#include "service/state/StateFile.h"

namespace btservice {
namespace {

constexpr const char* kDescription =
    "Paired devices and attributes are kept in the state file, by default btservice.json in libbt\n"
    "in the user's state directory.\n"
    "\n"
    "The shared segments stay when the service ends: applications go on with them, and the\n"
    "next service takes them over. --reserve is for system start, before the first\n"
    "application: it uses up the identifiers 0 to 7, needs no bus, and exits.\n"
    "\n"
    "Exit codes: 0 ended by SIGTERM, SIGINT or the end of the bus; 2 wrong usage;\n"
    "3 the name is taken on this bus; 4 no session bus; 6 nothing reserved.";

}  // namespace

int FailUsage(const char* message) {
  std::fprintf(stderr, "btservice: %s\nTry 'btservice --help'.\n", message);
  return EXIT_USAGE;
}

bool ParseOptions(int argc, char** argv, StackProvider& provider, Options& options, int& exitCode) {
  gboolean version = FALSE;
  gboolean keepSegments = FALSE;
  gboolean removeSegments = FALSE;
  gboolean reserve = FALSE;
  gboolean noState = FALSE;
  OwnedText state;
  const GOptionEntry own[] = {
      {"state", 0, 0, G_OPTION_ARG_FILENAME, state.Out(), "Keep the state in this file", "FILE"},
      {"no-state", 0, 0, G_OPTION_ARG_NONE, &noState, "Keep no state, and look at none", nullptr},
      {"keep-segments", 'k', 0, G_OPTION_ARG_NONE, &keepSegments,
       "Leave the shared segments behind at exit (the default)", nullptr},
      {"remove-segments", 0, 0, G_OPTION_ARG_NONE, &removeSegments,
       "Remove the shared segments at exit, as tests may want", nullptr},
      {"reserve", 0, 0, G_OPTION_ARG_NONE, &reserve,
       "Keep the identifiers 0 to 7 from being given to segments, and exit", nullptr},
      {"version", 0, 0, G_OPTION_ARG_NONE, &version, "Show the version", nullptr}};
  std::vector<GOptionEntry> entries = provider.Options();
  entries.insert(entries.end(), std::begin(own), std::end(own));
  entries.push_back({});  // ends the list
  const OwnedOptionContext context(g_option_context_new(nullptr));
  g_option_context_set_summary(context.get(), provider.Summary().c_str());
  g_option_context_set_description(context.get(), (provider.Description() + kDescription).c_str());
  g_option_context_add_main_entries(context.get(), entries.data(), nullptr);

  OwnedError error;
  if (g_option_context_parse(context.get(), &argc, &argv, error.Out()) == FALSE) {
    exitCode = FailUsage(error->message);
    return false;
  }
  if (version != FALSE) {
    std::puts("btservice " BTSERVICE_VERSION);
    exitCode = EXIT_ENDED;
    return false;
  }
  if (const std::optional<int> ends = provider.Check()) {
    exitCode = *ends;
    return false;
  }
  if (argc > 1) {
    exitCode = FailUsage("there are no arguments, only options");
    return false;
  }
  if (keepSegments != FALSE && removeSegments != FALSE) {
    exitCode = FailUsage("the segments are either kept or removed");
    return false;
  }
  options.removeSegments = removeSegments != FALSE;
  options.reserve = reserve != FALSE;
  if (noState == FALSE) {
    options.statePath = state != nullptr ? state.get() : DefaultStatePath();
  }
  return true;
}

}  // namespace btservice
