#include "fuzz/Records.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace bttest {
namespace {

auto MembersOf(const MWPTypeCallLog& log) {
  return std::tie(log.nLogId, log.strText1, log.strText2, log.strText3, log.strText4, log.strText5,
                  log.nValue1, log.nValue2);
}

auto MembersOf(const MWPTypeCallSlot& slot) {
  return std::tie(slot.nValue1, slot.nValue2, slot.nValue3, slot.nValue4, slot.strText1, slot.strText2,
                  slot.strText3, slot.nValue5);
}

}  // namespace

bool IsSame(const MWPTypeContactNumber& left, const MWPTypeContactNumber& right) {
  return left.nType == right.nType && left.vecValues == right.vecValues;
}

bool IsSame(const MWPTypeContact& left, const MWPTypeContact& right) {
  return left.nContactId == right.nContactId && left.strText1 == right.strText1 &&
         left.strText2 == right.strText2 && IsSame(left.listNumbers, right.listNumbers);
}

bool IsSame(const MWPTypeCallLog& left, const MWPTypeCallLog& right) {
  return MembersOf(left) == MembersOf(right);
}

bool IsSame(const MWPTypeCallSlot& left, const MWPTypeCallSlot& right) {
  return MembersOf(left) == MembersOf(right);
}

bool IsSame(const MWPTypeCallInfo& left, const MWPTypeCallInfo& right) {
  return left.nCallCount == right.nCallCount && IsSame(left.callSlot1, right.callSlot1) &&
         IsSame(left.callSlot2, right.callSlot2);
}

bool IsSame(const MWPTypeDevice& left, const MWPTypeDevice& right) {
  return left.eProfileId == right.eProfileId && left.eEnableProfileId == right.eEnableProfileId &&
         left.eConnectStatus == right.eConnectStatus && left.eSupportType == right.eSupportType &&
         left.strAddr == right.strAddr && left.strName == right.strName;
}

int RandomRecords::Integer() {
  constexpr int kExtremes[] = {
      0, 1, -1, 255, 256, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
  const int choice = Below(2 * static_cast<int>(std::size(kExtremes)));
  return choice < static_cast<int>(std::size(kExtremes)) ? kExtremes[choice] : static_cast<int>(m_random());
}

std::string RandomRecords::Text() {
  constexpr int kLimits[] = {1, 8, 17, 40, 300};  // around what a std::string holds in itself, and more
  std::string text(static_cast<std::size_t>(Below(kLimits[Below(static_cast<int>(std::size(kLimits)))])),
                   ' ');
  std::generate(text.begin(), text.end(), [this] { return static_cast<char>(1 + Below(255)); });
  return text;
}

MWPTypeContact RandomRecords::Contact() {
  MWPTypeContact contact;
  contact.nContactId = Integer();
  contact.strText1 = Text();
  contact.strText2 = Text();
  for (int groups = Below(4); groups > 0; --groups) {
    MWPTypeContactNumber group;
    group.nType = Integer();
    for (int values = Below(4); values > 0; --values) {
      group.vecValues.push_back(Text());
    }
    contact.listNumbers.push_back(group);
  }
  return contact;
}

MWPTypeCallLog RandomRecords::CallLog() {
  MWPTypeCallLog log;
  for (int* value : {&log.nLogId, &log.nValue1, &log.nValue2}) {
    *value = Integer();
  }
  for (std::string* text : {&log.strText1, &log.strText2, &log.strText3, &log.strText4, &log.strText5}) {
    *text = Text();
  }
  return log;
}

MWPTypeCallSlot RandomRecords::CallSlot() {
  MWPTypeCallSlot slot;
  for (int* value : {&slot.nValue1, &slot.nValue2, &slot.nValue3, &slot.nValue4, &slot.nValue5}) {
    *value = Integer();
  }
  for (std::string* text : {&slot.strText1, &slot.strText2, &slot.strText3}) {
    *text = Text();
  }
  return slot;
}

MWPTypeCallInfo RandomRecords::CallInfo() {
  MWPTypeCallInfo info;
  info.nCallCount = Integer();
  info.callSlot1 = CallSlot();
  info.callSlot2 = CallSlot();
  return info;
}

}  // namespace bttest
