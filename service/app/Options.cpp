#include "service/app/Options.h"

#include <cmath>
#include <cstdio>
#include <string>

#include <glib.h>

#include "service/state/StateFile.h"
#include "service/world/WorldFile.h"

namespace btservice {
namespace {

constexpr double kLowestSpeed = 0.001;
constexpr double kHighestSpeed = 100000;

constexpr const char* kSummary =
    "Simulates the Bluetooth service of a head unit on the session bus, under the name\n"
    "com.zelk.linux.bluetooth: an adapter, phones to find, pair and connect, calls, music.";

std::string Description() {
  std::string worlds;
  for (const std::string& name : ShippedWorlds()) {
    worlds += (worlds.empty() ? "" : ", ") + name;
  }
  return "A world is a JSON file with devices and what happens to them, or one of the shipped ones:\n" +
         (worlds.empty() ? "none is found here" : worlds) +
         ".\n"
         "These are in share/libbt/worlds beside the folder of this program, or where the\n"
         "environment variable BTSERVICE_WORLDS says.\n"
         "Without one there are two phones and a serial accessory. Paired devices and attributes\n"
         "are kept in the state file, by default btservice.json in libbt in the user's state\n"
         "directory. What happens in the world can be driven on the object\n"
         "/com/zelk/linux/bluetooth/sim.\n"
         "\n"
         "The shared segments stay when the service ends: applications go on with them, and the\n"
         "next service takes them over. --reserve is for system start, before the first\n"
         "application: it uses up the identifiers 0 to 7, needs no bus, and exits.\n"
         "\n"
         "Exit codes: 0 ended by SIGTERM, SIGINT or the end of the bus; 2 wrong usage;\n"
         "3 the name is taken on this bus; 4 no session bus; 5 bad world; 6 nothing reserved.";
}

int Fail(const char* message) {
  std::fprintf(stderr, "btservice: %s\nTry 'btservice --help'.\n", message);
  return EXIT_USAGE;
}

}  // namespace

bool ParseOptions(int argc, char** argv, Options& options, int& exitCode) {
  gboolean version = FALSE;
  gboolean keepSegments = FALSE;
  gboolean removeSegments = FALSE;
  gboolean reserve = FALSE;
  gboolean schema = FALSE;
  gboolean noState = FALSE;
  g_autofree gchar* world = nullptr;
  g_autofree gchar* state = nullptr;
  const GOptionEntry entries[] = {
      {"world", 'w', 0, G_OPTION_ARG_FILENAME, &world, "Begin in this world", "NAME|FILE"},
      {"state", 0, 0, G_OPTION_ARG_FILENAME, &state, "Keep the state in this file", "FILE"},
      {"no-state", 0, 0, G_OPTION_ARG_NONE, &noState, "Keep no state, and look at none", nullptr},
      {"speed", 's', 0, G_OPTION_ARG_DOUBLE, &options.speed, "Run time N times as fast", "N"},
      {"keep-segments", 'k', 0, G_OPTION_ARG_NONE, &keepSegments,
       "Leave the shared segments behind at exit (the default)", nullptr},
      {"remove-segments", 0, 0, G_OPTION_ARG_NONE, &removeSegments,
       "Remove the shared segments at exit, as tests may want", nullptr},
      {"reserve", 0, 0, G_OPTION_ARG_NONE, &reserve,
       "Keep the identifiers 0 to 7 from being given to segments, and exit", nullptr},
      {"world-schema", 0, 0, G_OPTION_ARG_NONE, &schema, "Show the JSON Schema of worlds", nullptr},
      {"version", 0, 0, G_OPTION_ARG_NONE, &version, "Show the version", nullptr},
      {nullptr, 0, 0, G_OPTION_ARG_NONE, nullptr, nullptr, nullptr}};
  g_autoptr(GOptionContext) context = g_option_context_new(nullptr);
  g_option_context_set_summary(context, kSummary);
  g_option_context_set_description(context, Description().c_str());
  g_option_context_add_main_entries(context, entries, nullptr);

  g_autoptr(GError) error = nullptr;
  if (g_option_context_parse(context, &argc, &argv, &error) == FALSE) {
    exitCode = Fail(error->message);
    return false;
  }
  if (version != FALSE) {
    std::puts("btservice " BTSERVICE_VERSION);
    exitCode = EXIT_ENDED;
    return false;
  }
  if (schema != FALSE) {
    std::fputs(WorldSchema().c_str(), stdout);
    exitCode = EXIT_ENDED;
    return false;
  }
  if (argc > 1) {
    exitCode = Fail("there are no arguments, only options");
    return false;
  }
  if (!std::isfinite(options.speed) || options.speed < kLowestSpeed || options.speed > kHighestSpeed) {
    exitCode = Fail("the speed is a number from 0.001 to 100000");
    return false;
  }
  if (keepSegments != FALSE && removeSegments != FALSE) {
    exitCode = Fail("the segments are either kept or removed");
    return false;
  }
  options.removeSegments = removeSegments != FALSE;
  options.reserve = reserve != FALSE;
  options.world = world != nullptr ? world : "";
  if (noState == FALSE) {
    options.statePath = state != nullptr ? state : DefaultStatePath();
  }
  return true;
}

}  // namespace btservice
