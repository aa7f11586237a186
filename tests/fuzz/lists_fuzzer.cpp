// libFuzzer target: any bytes in the list segments (fuzz/ListInput.h). libbt reads them where they lie,
// libbtasync out of a copy.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "fuzz/DecoderChecks.h"
#include "fuzz/ListChecks.h"
#include "fuzz/ListInput.h"
#include "fuzz/Records.h"

namespace {

using bttest::ListInput;
using bttest::ListWorld;

constexpr unsigned kSeed = 1;  // of what the lists hold before
// Room for a hundred records. The megabytes of the real segments would take nearly all of the time.
constexpr std::size_t kSegmentBytes = 2048;

std::string CheckContacts(ListWorld& world, ShareMemID id) {
  static const std::list<MWPTypeContact> before = bttest::RandomRecords(kSeed).Contacts(3);
  std::list<MWPTypeContact> contacts = before;
  return bttest::CheckContacts(world, id, contacts);
}

std::string CheckCallLogs(ListWorld& world, ShareMemID) {
  static const std::list<MWPTypeCallLog> before = bttest::RandomRecords(kSeed).CallLogs(3);
  std::list<MWPTypeCallLog> logs = before;
  return bttest::CheckCallLogs(world, logs);
}

std::string CheckCallInfo(ListWorld& world, ShareMemID) {
  MWPTypeCallInfo info = bttest::RandomRecords(kSeed).CallInfo();
  return bttest::CheckCallInfo(world, info);
}

/// The ways to read a segment, into a list that holds something already.
using Check = std::string (*)(ListWorld& world, ShareMemID id);
constexpr Check kRoads[] = {CheckContacts, CheckContacts,      CheckCallLogs,
                            CheckCallInfo, bttest::CheckTexts, bttest::CheckTexts};
static_assert(std::size(kRoads) == std::size(ListInput::kRoadSegments));

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static ListWorld& world = *new ListWorld(kSegmentBytes);  // as long as the process
  const auto input = ListInput::Parse(data, size);
  if (!input) {
    return -1;
  }
  const ShareMemID id = input->Segment();
  world.Write(id, input->head, input->tail, input->filler);
  const std::string wrong = kRoads[input->road](world, id) + bttest::CheckDecoder(world.Segment(id), id);
  if (!wrong.empty()) {
    std::fprintf(stderr, "segment %d: %s\n", id, wrong.c_str());
    std::abort();
  }
  return 0;
}
