// The memory of a list that is fetched into again and again: kept where that saves work, given back where an
// absurd segment has left too much of it.

#include <list>
#include <string>

#include <gtest/gtest.h>

#include "contract/lists_fixture.h"

namespace bttest {
namespace {

constexpr std::size_t kKept = 4096;  // bytes that are never given back

/// One contact with a first name, and numbers of one kind.
SegmentItems OneContact(const std::string& name, int numbers, const std::string& number) {
  SegmentItems packer;
  packer.Int(1).Int(7).Text(name).Text("").Int(1).Int(2).Int(numbers);
  for (int i = 0; i < numbers; ++i) {
    packer.Text(number);
  }
  return packer;
}

struct ListMemory : Lists {
  /// Fetches into the list of the fetches before.
  void Fetch(const SegmentItems& packer) {
    packer.Publish(SH_CONTACT_LIST);
    EXPECT_EQ(m_adapter.GetContactList(contacts), 1);
    ASSERT_EQ(contacts.size(), 1u);
    ASSERT_EQ(contacts.front().listNumbers.size(), 1u);
  }
  std::size_t BytesOfName() const { return contacts.front().strText1.capacity(); }
  std::size_t BytesOfNumbers() const {
    return contacts.front().listNumbers.front().vecValues.capacity() * sizeof(std::string);
  }

  std::list<MWPTypeContact> contacts;
};

TEST_F(ListMemory, OfAnAbsurdCountOfNumbersIsGivenBack) {
  // As many empty numbers as the segment can hold: tens of megabytes of strings.
  constexpr int kCount = (2 << 20) - 64;
  Fetch(OneContact("a", kCount, ""));
  ASSERT_GE(BytesOfNumbers(), kCount * sizeof(std::string));
  Fetch(OneContact("a", 2, "+49 30 1"));
  EXPECT_LE(BytesOfNumbers(), kKept);
  EXPECT_EQ(contacts.front().listNumbers.front().vecValues,
            (std::vector<std::string>{"+49 30 1", "+49 30 1"}));
}

TEST_F(ListMemory, OfAnAbsurdTextIsGivenBack) {
  Fetch(OneContact(std::string(2000000, 'x'), 1, "1"));
  ASSERT_GE(BytesOfName(), 2000000u);
  Fetch(OneContact("Ada", 1, "1"));
  EXPECT_LE(BytesOfName(), kKept);
  EXPECT_EQ(contacts.front().strText1, "Ada");
}

TEST_F(ListMemory, OfAnAbsurdTextThatComesAgainSmallerIsKeptUntilLessThanHalfIsNeeded) {
  Fetch(OneContact(std::string(100000, 'x'), 1, "1"));
  const std::size_t had = BytesOfName();
  Fetch(OneContact(std::string(had / 2 + 1, 'y'), 1, "1"));
  EXPECT_EQ(BytesOfName(), had);
  Fetch(OneContact(std::string(had / 2 - 1, 'z'), 1, "1"));
  EXPECT_LT(BytesOfName(), had);
}

TEST_F(ListMemory, AboveFourKibIsGivenBackWhenLittleIsNeeded) {
  Fetch(OneContact(std::string(5000, 'x'), 1, "1"));
  Fetch(OneContact("Ada", 1, "1"));
  EXPECT_LE(BytesOfName(), kKept);
}

TEST_F(ListMemory, OfAnOrdinaryRecordIsUsedAgain) {
  Fetch(OneContact(std::string(3000, 'x'), 100, "a number that is stored outside of its string"));
  const char* const name = contacts.front().strText1.data();
  const std::string* const numbers = contacts.front().listNumbers.front().vecValues.data();
  const char* const number = numbers->data();
  Fetch(OneContact("Ada", 1, "a shorter number, likewise stored outside"));
  EXPECT_EQ(contacts.front().strText1.data(), name);
  EXPECT_EQ(contacts.front().listNumbers.front().vecValues.data(), numbers);
  EXPECT_EQ(numbers->data(), number);
}

}  // namespace
}  // namespace bttest
