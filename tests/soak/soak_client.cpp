// soak_client REQUESTS-PER-SECOND: an application that knows the public headers only. It starts the library,
// makes requests on four threads and listens on its main one, and checks what it gets. It prints a line
//
//   started                           once the library is
//   mark SERVICE NUMBER               when all its listeners have heard a marked event
//   failed BEGIN END REQUEST: REASON  for each request whose call has failed, with its time
//   wrong TEXT                        for what should not be
//   report NUMBERS                    for each line of its input (see Report.h)
//
// and ends with its input.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <glib.h>
#include <malloc.h>
#include <unistd.h>

#include <bluetooth/MWPBluetooth.h>

#include "drive/ProcessUsage.h"
#include "glib/Owned.h"
#include "soak/Listeners.h"
#include "soak/Report.h"
#include "soak/Requester.h"

namespace {

using namespace btsoak;

/// What malloc has handed out and not got back, in KiB.
long KilobytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<long>((info.uordblks + info.hblkhd) / 1024);
}

struct Application {
  int Run(int perSecond) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    WatchLog();
    listeners = std::make_unique<Listeners>();
    if (MWP_CreateBlueTooth() == 0) {
      std::printf("wrong the library does not start\n");
      return 1;
    }
    std::printf("started\n");
    for (int i = 0; i < kThreads; ++i) {
      requesters[i] =
          std::make_unique<Requester>(RequestsOverTheBus()[i], perSecond / kThreads, gate, counts);
    }
    input.reset(g_io_channel_unix_new(STDIN_FILENO));
    g_io_add_watch(input.get(), static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), OnInput, this);
    g_main_loop_run(loop.get());
    for (auto& requester : requesters) {
      requester.reset();
    }
    listeners.reset();
    MWP_DestroyBlueTooth();
    return 0;
  }

  void Print() {
    gate.Close();
    Report report;
    report.calls = counts.calls;
    report.late = counts.late;
    report.failed = counts.failed;
    report.reads = counts.reads;
    report.deliveries = listeners->Deliveries();
    report.listeners = listeners->HaveCome();
    report.kilobytes = KilobytesInUse();
    report.files = btservice::ProcessUsage(getpid()).files;
    std::printf("report %s\n", report.Text().c_str());
    gate.Open();
  }

  static gboolean OnInput(GIOChannel* input, GIOCondition, gpointer self) {
    auto& application = *static_cast<Application*>(self);
    OwnedText line;
    if (g_io_channel_read_line(input, line.Out(), nullptr, nullptr, nullptr) != G_IO_STATUS_NORMAL) {
      g_main_loop_quit(application.loop.get());
      return G_SOURCE_REMOVE;
    }
    application.Print();
    return G_SOURCE_CONTINUE;
  }

  const OwnedMainLoop loop{g_main_loop_new(nullptr, FALSE)};
  OwnedIoChannel input;
  Gate gate;
  RequestCounts counts;
  std::unique_ptr<Listeners> listeners;
  std::array<std::unique_ptr<Requester>, kThreads> requesters;
};

}  // namespace

int main(int argc, char** argv) {
  const int perSecond = argc == 2 ? std::atoi(argv[1]) : 0;
  if (perSecond < kThreads) {
    std::fprintf(stderr, "Usage: soak_client REQUESTS-PER-SECOND\n");
    return 2;
  }
  return Application().Run(perSecond);
}
