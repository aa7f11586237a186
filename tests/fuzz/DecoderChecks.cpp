#include "fuzz/DecoderChecks.h"

#include <algorithm>
#include <list>
#include <vector>

#include "fuzz/Expectation.h"
#include "fuzz/Records.h"
#include "libbtasync/SegmentDecoder.h"

namespace bttest {
namespace {

using btasync::Answer;
using btasync::detail::FindEnd;
using btasync::detail::SegmentCopy;

SegmentCopy Copy(const GuardedMemory& segment, FindEnd findEnd) {
  const unsigned char* const end = segment.Begin() + segment.Size();
  const unsigned char* const found = findEnd(segment.Begin(), end);
  SegmentCopy copy;
  if (found >= segment.Begin() && found <= end) {
    copy.bytes.assign(static_cast<const unsigned char*>(segment.Begin()), found);
  }
  copy.segmentSize = segment.Size();
  return copy;
}

const unsigned char* AllOfIt(const unsigned char*, const unsigned char* end) { return end; }

template <typename T>
std::string Judge(const Answer<T>& answer, bool isFaulty, bool isAsExpected) {
  if (isFaulty) {
    return answer.Failed() && !answer.Why().detail.empty() ? "" : "a faulty segment is decoded";
  }
  if (!answer) {
    return "a sound segment is not decoded: " + answer.Why().detail;
  }
  return isAsExpected ? "" : "other records than those of the segment";
}

template <typename Record>
std::string CheckList(const GuardedMemory& segment, ShareMemID id,
                      const Expected<std::list<Record>>& expected) {
  const SegmentCopy copy = Copy(segment, btasync::detail::EndOfList<Record>);
  const auto list = btasync::detail::DecodeList<Record>(id, copy);
  const auto isSame = [&] {
    return list->usedBytes == copy.bytes.size() &&
           std::equal(list->records.begin(), list->records.end(), expected.delivery.begin(),
                      expected.delivery.end(),
                      [](const Record& one, const Record& other) { return IsSame(one, other); });
  };
  return Judge(list, expected.isFaulty, list.Accepted() && isSame());
}

std::string CheckCalls(const GuardedMemory& segment) {
  auto expected = ExpectCallInfo(segment, MWPTypeCallInfo());
  // A count is judged too: no more calls than slots would fit.
  const int count = expected.delivery.nCallCount;
  constexpr std::size_t kSlot = 5 * 4 + 3;
  expected.isFaulty |= count < 0 || static_cast<std::size_t>(count) > (segment.Size() - 4) / kSlot;
  const auto calls = btasync::detail::DecodeCurrentCalls(Copy(segment, AllOfIt));
  return Judge(calls, expected.isFaulty, calls.Accepted() && IsSame(*calls, expected.delivery));
}

std::string CheckDevices(const GuardedMemory& segment) {
  const auto expected = ExpectDevices(segment);
  const auto devices = btasync::detail::DecodePairedDevices(Copy(segment, AllOfIt));
  const auto isSame = [&] {
    return std::equal(
        devices->begin(), devices->end(), expected.delivery.begin(), expected.delivery.end(),
        [](const MWPTypeDevice& one, const MWPTypeDevice& other) { return IsSame(one, other); });
  };
  return Judge(devices, expected.isFaulty, devices.Accepted() && isSame());
}

}  // namespace

std::string CheckDecoder(const GuardedMemory& segment, ShareMemID id) {
  switch (id) {
    case SH_CONTACT_LIST:
    case SH_FAV_CONTACT_LIST:
      return CheckList(segment, id, ExpectContacts(segment));
    case SH_CALL_LOG_LIST:
      return CheckList(segment, id, ExpectCallLogs(segment));
    case SH_CALL_INFO_LIST:
      return CheckCalls(segment);
    case SH_PAIRED_LIST:
      return CheckDevices(segment);
    default:
      return "no list segment";
  }
}

}  // namespace bttest
