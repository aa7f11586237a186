#ifndef TESTS_FUZZ_RECORDS_H
#define TESTS_FUZZ_RECORDS_H

#include <algorithm>
#include <list>
#include <random>
#include <string>

#include <bluetooth/MWPBtRecords.h>

// The records of the list segments: compared, and made at random.

namespace bttest {

bool IsSame(const MWPTypeContactNumber& left, const MWPTypeContactNumber& right);
bool IsSame(const MWPTypeContact& left, const MWPTypeContact& right);
bool IsSame(const MWPTypeCallLog& left, const MWPTypeCallLog& right);
bool IsSame(const MWPTypeCallSlot& left, const MWPTypeCallSlot& right);
bool IsSame(const MWPTypeCallInfo& left, const MWPTypeCallInfo& right);
bool IsSame(const MWPTypeDevice& left, const MWPTypeDevice& right);

template <typename Record>
bool IsSame(const std::list<Record>& left, const std::list<Record>& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](const Record& one, const Record& other) { return IsSame(one, other); });
}

/// Random records: empty, short and long texts of any bytes but NUL, extreme integers, empty groups.
class RandomRecords {
 public:
  explicit RandomRecords(unsigned seed) : m_random(seed) {}

  int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
  int Integer();
  std::string Text();
  MWPTypeContact Contact();
  MWPTypeCallLog CallLog();
  MWPTypeCallInfo CallInfo();

  std::list<MWPTypeContact> Contacts(int count) {
    std::list<MWPTypeContact> contacts;
    while (count-- > 0) {
      contacts.push_back(Contact());
    }
    return contacts;
  }

  std::list<MWPTypeCallLog> CallLogs(int count) {
    std::list<MWPTypeCallLog> logs;
    while (count-- > 0) {
      logs.push_back(CallLog());
    }
    return logs;
  }

 private:
  MWPTypeCallSlot CallSlot();

  std::mt19937 m_random;
};

}  // namespace bttest

#endif
