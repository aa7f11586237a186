#include "fuzz/ListChecks.h"

#include <cstring>

#include "fuzz/Expectation.h"
#include "fuzz/Records.h"
#include "ipc/ShareMemory/ShmUnPackUtils.h"

namespace bttest {
namespace {

/// What is wrong with an answer, and with the number of errors that were logged meanwhile.
std::string Judge(ListWorld& world, int result, bool isAsExpected, bool isFaulty) {
  const int errors = world.TakeErrors();
  std::string verdict;
  if (result != 1) {
    verdict += "the result is " + std::to_string(result) + ". ";
  }
  if (!isAsExpected) {
    verdict += "other records than those that are whole. ";
  }
  if (errors != (isFaulty ? 1 : 0)) {
    verdict += std::string("a ") + (isFaulty ? "faulty" : "sound") + " segment is logged with " +
               std::to_string(errors) + " errors. ";
  }
  return verdict;
}

}  // namespace

std::string CheckContacts(ListWorld& world, ShareMemID id, std::list<MWPTypeContact>& contacts) {
  const auto expected = ExpectContacts(world.Segment(id));
  world.TakeErrors();
  const int result = id == SH_CONTACT_LIST ? world.Adapter().GetContactList(contacts)
                                           : world.Adapter().GetFavContactList(contacts);
  return Judge(world, result, IsSame(contacts, expected.delivery), expected.isFaulty);
}

std::string CheckCallLogs(ListWorld& world, std::list<MWPTypeCallLog>& logs) {
  auto expected = ExpectCallLogs(world.Segment(SH_CALL_LOG_LIST));
  expected.delivery.insert(expected.delivery.begin(), logs.begin(), logs.end());
  world.TakeErrors();
  const int result = world.Adapter().GetCallLogList(CallLogType(), logs);
  return Judge(world, result, IsSame(logs, expected.delivery), expected.isFaulty);
}

std::string CheckCallInfo(ListWorld& world, MWPTypeCallInfo& info) {
  const auto expected = ExpectCallInfo(world.Segment(SH_CALL_INFO_LIST), info);
  world.TakeErrors();
  const int result = world.Adapter().GetCurrentCallInfo(info);
  return Judge(world, result, IsSame(info, expected.delivery), expected.isFaulty);
}

std::string CheckTexts(ListWorld& world, ShareMemID id) {
  const GuardedMemory& segment = world.Segment(id);
  const auto expected = ExpectTexts(segment);
  int announced = 0;
  std::memcpy(&announced, segment.Begin(), sizeof announced);
  world.TakeErrors();

  ShmUnPackUtils unpack;
  if (unpack.StartShmUnPackList(id) != announced) {
    return "another count than the segment's";
  }
  std::string text;
  for (const std::string& wanted : expected.delivery) {
    if (!unpack.UnPackDataFromShareMemory(text) || text != wanted) {
      return "another text than the segment's";
    }
  }
  const std::string before = text;
  const bool isThereMore = unpack.UnPackDataFromShareMemory(text);
  return Judge(world, 1, !isThereMore && text == before, expected.isFaulty);
}

}  // namespace bttest
