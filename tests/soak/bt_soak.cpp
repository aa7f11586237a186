// bt_soak SECONDS: soaks the library for so long, prints what has become of everything, and exits with 1 if
// anything was lost or has grown, or if a fault never came. To be run in script/sandbox, which script/soak
// does.

#include <cstdio>
#include <cstdlib>

#include "soak/Soak.h"

namespace {

using namespace btsoak;

void PrintRow(const char* what, long count, double seconds) {
  std::printf("%-46s %12ld %10.0f\n", what, count, static_cast<double>(count) / seconds);
}

void Print(const SoakResult& result) {
  std::printf("%-46s %12s %10s\n", "", "in all", "a second");
  PrintRow("calls over the bus", result.sum.calls, result.seconds);
  PrintRow("  of these, answered late", result.sum.late, result.seconds);
  PrintRow("  of these, failed", result.sum.failed, result.seconds);
  PrintRow("reads of shared memory", result.sum.reads, result.seconds);
  PrintRow("events sent by the service", result.signals, result.seconds);
  PrintRow("deliveries to listeners", result.sum.deliveries, result.seconds);
  PrintRow("listeners that came, most of which went", result.sum.listeners, result.seconds);
  std::printf("\nfaults survived\n");
  for (int i = 0; i < FAULTS; ++i) {
    std::printf("%-46s %12ld\n", kFaultTexts[i], result.faults[i]);
  }
  std::printf("\n%-30s %12s %12s %8s %8s\n", "applications of the last bus", "KiB at start", "KiB at end",
              "fds", "fds");
  for (std::size_t i = 0; i < result.longest.size(); ++i) {
    const Usage& usage = result.longest[i];
    std::printf("%-30zu %12ld %12ld %8ld %8ld\n", i + 1, usage.atStart.kilobytes, usage.atEnd.kilobytes,
                usage.atStart.files, usage.atEnd.files);
  }
  std::printf("shared segments: %d at the start, %d at the end\n", result.segmentsAtStart,
              result.segmentsAtEnd);
  std::printf("\nlost, without a document that says so: %ld\n", result.lossCount);
  for (const std::string& loss : result.losses) {
    std::printf("  %s\n", loss.c_str());
  }
  for (const std::string& omission : result.Omissions()) {
    std::printf("never happened, so nothing is known about it: %s\n", omission.c_str());
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int seconds = argc == 2 ? std::atoi(argv[1]) : 0;
  if (seconds <= 0) {
    std::fprintf(stderr, "Usage: bt_soak SECONDS\n");
    return 2;
  }
  const SoakResult result = Soak(std::chrono::seconds(seconds)).Run();
  Print(result);
  return result.IsGood() ? 0 : 1;
}
