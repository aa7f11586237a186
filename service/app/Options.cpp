#include "service/app/Options.h"

#include <cmath>
#include <cstdio>

#include <glib.h>

namespace btservice {
namespace {

constexpr double kHighestSpeed = 100000;

constexpr const char* kDescription =
    "Simulates the Bluetooth service of a head unit on the session bus, under the name\n"
    "com.zelk.linux.bluetooth: an adapter, phones to find, pair and connect, calls, music.\n"
    "\n"
    "Exit codes: 0 ended by SIGTERM, SIGINT or the end of the bus; 2 wrong usage;\n"
    "3 the name is taken on this bus; 4 no session bus.";

int Fail(const char* message) {
  std::fprintf(stderr, "btservice: %s\nTry 'btservice --help'.\n", message);
  return EXIT_USAGE;
}

}  // namespace

bool ParseOptions(int argc, char** argv, Options& options, int& exitCode) {
  gboolean version = FALSE;
  gboolean keepSegments = FALSE;
  const GOptionEntry entries[] = {
      {"speed", 's', 0, G_OPTION_ARG_DOUBLE, &options.speed, "Let time run N times as fast", "N"},
      {"keep-segments", 'k', 0, G_OPTION_ARG_NONE, &keepSegments, "Leave the shared segments behind at exit",
       nullptr},
      {"version", 0, 0, G_OPTION_ARG_NONE, &version, "Show the version", nullptr},
      {nullptr, 0, 0, G_OPTION_ARG_NONE, nullptr, nullptr, nullptr}};
  g_autoptr(GOptionContext) context = g_option_context_new(nullptr);
  g_option_context_set_summary(context, kDescription);
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
  if (argc > 1) {
    exitCode = Fail("there are no arguments, only options");
    return false;
  }
  if (!std::isfinite(options.speed) || options.speed <= 0 || options.speed > kHighestSpeed) {
    exitCode = Fail("the speed is a number above 0, at most 100000");
    return false;
  }
  options.keepSegments = keepSegments != FALSE;
  return true;
}

}  // namespace btservice
