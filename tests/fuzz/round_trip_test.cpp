// Random lists, packed by a packer that knows nothing of the library, come out of their segments as they
// were.

#include <gtest/gtest.h>

#include "fuzz/ListPacker.h"
#include "fuzz/ListWorld.h"
#include "fuzz/Records.h"

namespace {

using bttest::Bytes;
using bttest::IsSame;
using bttest::ListWorld;
using bttest::Pack;
using bttest::RandomRecords;

constexpr unsigned kSeed = 20;
constexpr int kRounds = 300;

class RoundTrip : public testing::Test {
 protected:
  /// Writes records to a segment. What it cannot hold is taken off the list first.
  template <typename Record>
  void Publish(ShareMemID id, std::list<Record>& records) {
    Bytes packed = Pack(records);
    while (packed.size() > m_world.Segment(id).Size()) {
      records.pop_back();
      packed = Pack(records);
    }
    m_world.Write(id, packed);
  }

  ListWorld m_world;
  RandomRecords m_random{kSeed};
};

TEST_F(RoundTrip, ContactsComeOutEqualIntoAnEmptyListAndIntoTheLastOne) {
  std::list<MWPTypeContact> reused;
  for (int round = 0; round < kRounds; ++round) {
    std::list<MWPTypeContact> contacts = m_random.Contacts(m_random.Below(50));
    Publish(SH_CONTACT_LIST, contacts);
    std::list<MWPTypeContact> fresh;
    ASSERT_EQ(m_world.Adapter().GetContactList(fresh), 1);
    ASSERT_TRUE(IsSame(fresh, contacts)) << "round " << round;
    ASSERT_EQ(m_world.Adapter().GetContactList(reused), 1);
    ASSERT_TRUE(IsSame(reused, contacts)) << "round " << round;
  }
  EXPECT_EQ(m_world.TakeErrors(), 0);
}

TEST_F(RoundTrip, FavouriteContactsComeOutEqual) {
  std::list<MWPTypeContact> reused;
  for (int round = 0; round < kRounds; ++round) {
    std::list<MWPTypeContact> contacts = m_random.Contacts(m_random.Below(50));
    Publish(SH_FAV_CONTACT_LIST, contacts);
    ASSERT_EQ(m_world.Adapter().GetFavContactList(reused), 1);
    ASSERT_TRUE(IsSame(reused, contacts)) << "round " << round;
  }
  EXPECT_EQ(m_world.TakeErrors(), 0);
}

TEST_F(RoundTrip, CallLogsComeOutEqualAndBehindWhatTheListHeld) {
  for (int round = 0; round < kRounds; ++round) {
    std::list<MWPTypeCallLog> logs = m_random.CallLogs(m_random.Below(100));
    Publish(SH_CALL_LOG_LIST, logs);
    const std::list<MWPTypeCallLog> before = m_random.CallLogs(m_random.Below(3));
    std::list<MWPTypeCallLog> read = before;
    ASSERT_EQ(m_world.Adapter().GetCallLogList(CALL_LOG_MISSED, read), 1);
    logs.insert(logs.begin(), before.begin(), before.end());
    ASSERT_TRUE(IsSame(read, logs)) << "round " << round;
  }
  EXPECT_EQ(m_world.TakeErrors(), 0);
}

TEST_F(RoundTrip, CurrentCallsComeOutEqual) {
  int whole = 0;
  MWPTypeCallInfo read;
  for (int round = 0; round < kRounds; ++round) {
    const MWPTypeCallInfo info = m_random.CallInfo();
    const Bytes packed = bttest::Pack(info);
    if (packed.size() > m_world.Segment(SH_CALL_INFO_LIST).Size()) {
      continue;
    }
    m_world.Write(SH_CALL_INFO_LIST, packed);
    ASSERT_EQ(m_world.Adapter().GetCurrentCallInfo(read), 1);
    ASSERT_TRUE(IsSame(read, info)) << "round " << round;
    ++whole;
  }
  EXPECT_GT(whole, kRounds / 2);
  EXPECT_EQ(m_world.TakeErrors(), 0);
}

// Every byte of the segment is used: the last record ends with its last byte.
TEST_F(RoundTrip, AListThatFillsItsSegmentToTheLastByteComesOutEqual) {
  for (const ShareMemID id : {SH_CONTACT_LIST, SH_FAV_CONTACT_LIST}) {
    const std::size_t size = m_world.Segment(id).Size();
    std::list<MWPTypeContact> contacts = m_random.Contacts(200);
    contacts.emplace_back().strText2 = std::string(size, 'x');
    std::string& last = contacts.back().listNumbers.emplace_back().vecValues.emplace_back();
    const std::size_t tooLong = Pack(contacts).size() - size;
    contacts.back().strText2.resize(size - tooLong);
    last = "";
    ASSERT_EQ(Pack(contacts).size(), size);
    m_world.Write(id, Pack(contacts), {}, 0xff);
    std::list<MWPTypeContact> read;
    ASSERT_EQ(id == SH_CONTACT_LIST ? m_world.Adapter().GetContactList(read)
                                    : m_world.Adapter().GetFavContactList(read),
              1);
    EXPECT_TRUE(IsSame(read, contacts)) << "segment " << id;
    EXPECT_EQ(m_world.TakeErrors(), 0) << "segment " << id;
  }
}

}  // namespace
