// libFuzzer target: any bytes in the list segments. The first four bytes of an input say where the others go:
// which segment is read and how; what fills the segment; and how many of the other bytes (two bytes, the
// lower first) are put at the segment's end instead of its begin.

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/ListChecks.h"
#include "fuzz/Records.h"

namespace {

using bttest::ListWorld;

constexpr std::size_t kHeaderBytes = 4;
constexpr unsigned kSeed = 1;  // of what the lists hold before
// Room for a hundred records. The megabytes of the real segments would take nearly all of the time.
constexpr std::size_t kSegmentBytes = 2048;

/// A way to read a segment, into a list that holds something already.
struct Road {
  ShareMemID id;
  std::string (*check)(ListWorld& world, ShareMemID id);
};

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

constexpr Road kRoads[] = {
    {SH_CONTACT_LIST, CheckContacts},     {SH_FAV_CONTACT_LIST, CheckContacts},
    {SH_CALL_LOG_LIST, CheckCallLogs},    {SH_CALL_INFO_LIST, CheckCallInfo},
    {SH_PAIRED_LIST, bttest::CheckTexts}, {SH_CALL_LOG_LIST, bttest::CheckTexts},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static ListWorld& world = *new ListWorld(kSegmentBytes);  // as long as the process
  if (size < kHeaderBytes) {
    return -1;
  }
  const Road& road = kRoads[data[0] % std::size(kRoads)];
  const std::size_t wantedTail = data[2] + 256u * data[3];
  const std::uint8_t* const end = data + size;
  const std::uint8_t* const tail = end - std::min(wantedTail, size - kHeaderBytes);
  world.Write(road.id, {data + kHeaderBytes, tail}, {tail, end}, data[1]);
  const std::string wrong = road.check(world, road.id);
  if (!wrong.empty()) {
    std::fprintf(stderr, "segment %d: %s\n", road.id, wrong.c_str());
    std::abort();
  }
  return 0;
}
