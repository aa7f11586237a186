#include "fuzz/Expectation.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <regex>

namespace bttest {
namespace {

/// Thrown by Walk when the segment does not hold what is asked for.
struct NotWhole {};

class Walk {
 public:
  explicit Walk(const GuardedMemory& segment) : m_segment(segment) {}

  std::size_t Left() const { return m_segment.Size() - m_place; }

  int Integer() {
    if (Left() < 4) {
      throw NotWhole();
    }
    unsigned value = 0;
    for (int shift = 0; shift < 32; shift += 8) {
      value |= static_cast<unsigned>(Next()) << shift;
    }
    return static_cast<int>(value);
  }

  /// A count of items that take so many bytes at least.
  int Count(std::size_t smallest) {
    const int count = Integer();
    if (!CanHold(count, smallest)) {
      throw NotWhole();
    }
    return count;
  }

  bool CanHold(int count, std::size_t smallest) const {
    return count >= 0 && static_cast<std::size_t>(count) * smallest <= Left();
  }

  std::string Text() {
    const auto* const begin = reinterpret_cast<const char*>(m_segment.Begin() + m_place);
    const std::size_t size = strnlen(begin, Left());
    if (size == Left()) {
      throw NotWhole();
    }
    m_place += size + 1;
    return std::string(begin, size);
  }

  std::size_t Place() const { return m_place; }

 private:
  unsigned char Next() { return m_segment.Begin()[m_place++]; }

  const GuardedMemory& m_segment;
  std::size_t m_place = 0;
};

MWPTypeContact WalkContact(Walk& walk) {
  MWPTypeContact contact;
  contact.nContactId = walk.Integer();
  contact.strText1 = walk.Text();
  contact.strText2 = walk.Text();
  for (int groups = walk.Count(4 + 4); groups > 0; --groups) {
    MWPTypeContactNumber group;
    group.nType = walk.Integer();
    for (int values = walk.Count(1); values > 0; --values) {
      group.vecValues.push_back(walk.Text());
    }
    contact.listNumbers.push_back(group);
  }
  return contact;
}

MWPTypeCallLog WalkCallLog(Walk& walk) {
  MWPTypeCallLog log;
  log.nLogId = walk.Integer();
  log.nValue1 = walk.Integer();
  log.nValue2 = walk.Integer();
  log.strText1 = walk.Text();
  log.strText2 = walk.Text();
  log.strText3 = walk.Text();
  log.strText4 = walk.Text();
  log.strText5 = walk.Text();
  return log;
}

MWPTypeCallSlot WalkCallSlot(Walk& walk) {
  MWPTypeCallSlot slot;
  slot.nValue1 = walk.Integer();
  slot.nValue2 = walk.Integer();
  slot.nValue3 = walk.Integer();
  slot.nValue4 = walk.Integer();
  slot.nValue5 = walk.Integer();
  slot.strText1 = walk.Text();
  slot.strText2 = walk.Text();
  slot.strText3 = walk.Text();
  return slot;
}

MWPTypeDevice WalkDevice(Walk& walk) {
  MWPTypeDevice device;
  device.eProfileId = static_cast<MWPBtType::ProfileId>(walk.Integer());
  device.eEnableProfileId = static_cast<MWPBtType::ProfileId>(walk.Integer());
  device.eConnectStatus = static_cast<MWPBtType::ConnStatus>(walk.Integer());
  device.eSupportType = static_cast<MWPBtType::SupportType>(walk.Integer());
  device.strAddr = walk.Text();
  device.strName = walk.Text();
  return device;
}

bool IsAddress(const std::string& text) {
  static const std::regex form("([0-9A-Fa-f]{2}:){5}[0-9A-Fa-f]{2}");
  return text.size() == 17 && std::regex_match(text, form);
}

/// The place behind the last byte that is not zero.
std::size_t EndOfData(const GuardedMemory& segment) {
  const std::reverse_iterator<const unsigned char*> last(segment.Begin() + segment.Size());
  const std::reverse_iterator<const unsigned char*> first(segment.Begin());
  const auto found = std::find_if(last, first, [](unsigned char byte) { return byte != 0; });
  return static_cast<std::size_t>(first - found);
}

/// A count that the segment cannot hold is a fault, but the records are there all the same: they are read as
/// long as anything but zeros is left, and no more of them than were announced.
template <typename Record>
Expected<std::list<Record>> ExpectList(const GuardedMemory& segment, std::size_t smallest,
                                       Record (*walkRecord)(Walk&)) {
  Walk walk(segment);
  Expected<std::list<Record>> expected;
  const int count = walk.Integer();
  const bool isPossible = walk.CanHold(count, smallest);
  const std::size_t endOfData = isPossible ? 0 : EndOfData(segment);
  expected.isFaulty = !isPossible;
  try {
    for (int i = 0; i < count && (isPossible || walk.Place() < endOfData); ++i) {
      expected.delivery.push_back(walkRecord(walk));
    }
  } catch (const NotWhole&) {
    expected.isFaulty = true;
  }
  return expected;
}

}  // namespace

Expected<std::list<MWPTypeContact>> ExpectContacts(const GuardedMemory& segment) {
  return ExpectList(segment, 4 + 1 + 1 + 4, WalkContact);
}

Expected<std::list<MWPTypeCallLog>> ExpectCallLogs(const GuardedMemory& segment) {
  return ExpectList(segment, 3 * 4 + 5 * 1, WalkCallLog);
}

Expected<MWPTypeCallInfo> ExpectCallInfo(const GuardedMemory& segment, const MWPTypeCallInfo& before) {
  Walk walk(segment);
  Expected<MWPTypeCallInfo> expected{before};
  expected.delivery.nCallCount = walk.Integer();
  try {
    expected.delivery.callSlot1 = WalkCallSlot(walk);
    expected.delivery.callSlot2 = WalkCallSlot(walk);
  } catch (const NotWhole&) {
    expected.isFaulty = true;
  }
  return expected;
}

Expected<std::list<MWPTypeDevice>> ExpectDevices(const GuardedMemory& segment) {
  auto expected = ExpectList(segment, 4 * 4 + 1 + 1, WalkDevice);
  for (const MWPTypeDevice& device : expected.delivery) {
    expected.isFaulty |= !IsAddress(device.strAddr);
  }
  return expected;
}

Expected<std::vector<std::string>> ExpectTexts(const GuardedMemory& segment) {
  Walk walk(segment);
  Expected<std::vector<std::string>> expected;
  walk.Integer();
  try {
    for (;;) {
      expected.delivery.push_back(walk.Text());
    }
  } catch (const NotWhole&) {
    expected.isFaulty = true;
  }
  return expected;
}

}  // namespace bttest
