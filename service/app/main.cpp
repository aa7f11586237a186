// btservice: a Bluetooth service to develop against, without car and phone.

#include <cstdio>
#include <optional>
#include <stdexcept>

#include <glib-unix.h>

#include "ipc/ShareMemory/SmallIdentifiers.h"
#include "service/app/Process.h"

namespace {

using namespace btservice;

gboolean QuitOnSignal(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_CONTINUE;
}

/// Nothing, and a message, if the world cannot be loaded.
std::optional<WorldFile> LoadWorldOrComplain(const std::string& name) {
  try {
    return name.empty() ? WorldFile{BuiltInWorld(), {}} : LoadWorld(name);
  } catch (const std::runtime_error& problem) {
    std::fprintf(stderr, "btservice: %s\n", problem.what());
    return std::nullopt;
  }
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  int exitCode = EXIT_ENDED;
  if (!ParseOptions(argc, argv, options, exitCode)) {
    return exitCode;
  }
  if (options.reserve) {
    return UseUpSmallIdentifiers() ? EXIT_ENDED : EXIT_NOT_RESERVED;
  }
  const std::optional<WorldFile> world = LoadWorldOrComplain(options.world);
  if (!world) {
    return EXIT_BAD_WORLD;
  }
  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  g_unix_signal_add(SIGTERM, QuitOnSignal, loop);
  g_unix_signal_add(SIGINT, QuitOnSignal, loop);
  exitCode = Process(options, *world, loop).Run();
  g_main_loop_unref(loop);
  return exitCode;
}
