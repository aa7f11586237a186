// The order of the members of every record, on which applications that are already built rely.

#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/MWPBtRecords.h>

namespace {

struct Member {
  std::size_t offset;
  std::size_t size;
  std::size_t alignment;
};

std::size_t RoundedUp(std::size_t value, std::size_t multiple) {
  return (value + multiple - 1) / multiple * multiple;
}

/// Fails unless a record consists of these members, in this order, and padding.
template <typename Record, typename... Types>
void ExpectMembers(Types Record::*... members) {
  const Record record;
  const auto* const begin = reinterpret_cast<const char*>(&record);
  const std::vector<Member> all{
      {static_cast<std::size_t>(reinterpret_cast<const char*>(&(record.*members)) - begin), sizeof(Types),
       alignof(Types)}...};
  std::size_t end = 0;
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(all[i].offset, RoundedUp(end, all[i].alignment)) << "member " << i;
    end = all[i].offset + all[i].size;
  }
  EXPECT_EQ(sizeof(Record), RoundedUp(end, alignof(Record))) << "there are more members";
}

TEST(RecordLayout, Device) {
  using R = MWPTypeDevice;
  ExpectMembers(&R::strAddr, &R::strName, &R::vecExtraInfo, &R::eSupportType, &R::eProfileId,
                &R::eEnableProfileId, &R::eConnectStatus);
}

TEST(RecordLayout, ContactNumber) {
  using R = MWPTypeContactNumber;
  ExpectMembers(&R::nType, &R::vecValues);
}

TEST(RecordLayout, Contact) {
  using R = MWPTypeContact;
  ExpectMembers(&R::nContactId, &R::strText1, &R::strText2, &R::listNumbers);
}

TEST(RecordLayout, CallLog) {
  using R = MWPTypeCallLog;
  ExpectMembers(&R::nLogId, &R::strText1, &R::strText2, &R::strText3, &R::strText4, &R::strText5, &R::nValue1,
                &R::nValue2);
}

TEST(RecordLayout, CallSlot) {
  using R = MWPTypeCallSlot;
  ExpectMembers(&R::nValue1, &R::nValue2, &R::nValue3, &R::nValue4, &R::strText1, &R::strText2, &R::strText3,
                &R::nValue5);
}

TEST(RecordLayout, CallInfo) {
  using R = MWPTypeCallInfo;
  ExpectMembers(&R::nCallCount, &R::callSlot1, &R::callSlot2);
}

TEST(RecordLayout, MediaInfo) {
  using R = MWPTypeMediaInfo;
  ExpectMembers(&R::title, &R::artist, &R::album, &R::track, &R::numOfTracks, &R::genre, &R::duration);
}

TEST(RecordLayout, PlayMode) {
  using R = MWPTypePlayMode;
  ExpectMembers(&R::nType, &R::nValue);
}

TEST(RecordLayout, ConnectionState) {
  using R = MWPTypeConnectionState;
  ExpectMembers(&R::status, &R::address);
}

TEST(RecordLayout, Message) {
  using R = MWPTypeMessage;
  ExpectMembers(&R::strText1, &R::nValue1, &R::strText2, &R::strText3, &R::strText4, &R::strText5,
                &R::strText6, &R::nValue2);
}

TEST(RecordLayout, MediaItem) {
  using R = MWPTypeMediaItem;
  ExpectMembers(&R::strUid, &R::strName, &R::nType, &R::bPlayable);
}

TEST(RecordLayout, ScanDevice) {
  using R = MWPTypeScanDevice;
  ExpectMembers(&R::strAddr, &R::strName, &R::eSupportType);
}

TEST(RecordLayout, BleDevice) {
  using R = MWPTypeBleDevice;
  ExpectMembers(&R::strAddr, &R::strName, &R::nAddressType, &R::nRssi);
}

TEST(RecordLayout, GattService) {
  using R = MWPTypeGattService;
  ExpectMembers(&R::strUuid, &R::nStartHandle, &R::nEndHandle);
}

}  // namespace
