// btservice: the Bluetooth service, over the stacks that it was built with.

#include <memory>
#include <optional>

#include <glib-unix.h>

#include "glib/Owned.h"
#include "ipc/ShareMemory/SmallIdentifiers.h"
#include "service/app/Process.h"

namespace {

using namespace btservice;

gboolean QuitOnSignal(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_CONTINUE;
}

}  // namespace

int main(int argc, char** argv) {
  const std::unique_ptr<StackProvider> provider = MakeStackProvider();
  Options options;
  int exitCode = EXIT_ENDED;
  if (!ParseOptions(argc, argv, *provider, options, exitCode)) {
    return exitCode;
  }
  if (options.reserve) {
    return UseUpSmallIdentifiers() ? EXIT_ENDED : EXIT_NOT_RESERVED;
  }
  if (const std::optional<int> ends = provider->Prepare()) {
    return *ends;
  }
  const OwnedMainLoop loop(g_main_loop_new(nullptr, FALSE));
  g_unix_signal_add(SIGTERM, QuitOnSignal, loop.get());
  g_unix_signal_add(SIGINT, QuitOnSignal, loop.get());
  return Process(options, *provider, loop.get()).Run();
}
