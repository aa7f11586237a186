// The records a caller starts from, and the values that the contract fixes.

#include <gtest/gtest.h>

#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>
#include <bluetooth/ShareMemID.h>

namespace {

TEST(Records, ADefaultDeviceIsEnabledForProfile3AndOtherwiseEmpty) {
  const MWPTypeDevice device;
  EXPECT_EQ(device.strAddr, "");
  EXPECT_EQ(device.strName, "");
  EXPECT_TRUE(device.vecExtraInfo.empty());
  EXPECT_EQ(device.eSupportType, 0);
  EXPECT_EQ(device.eProfileId, 0);
  EXPECT_EQ(device.eEnableProfileId, 3);
  EXPECT_EQ(device.eConnectStatus, 0);
}

TEST(Records, ADefaultContactHasIdMinusOneAndNoNumbers) {
  const MWPTypeContact contact;
  EXPECT_EQ(contact.nContactId, -1);
  EXPECT_TRUE(contact.strText1.empty());
  EXPECT_TRUE(contact.strText2.empty());
  EXPECT_TRUE(contact.listNumbers.empty());
}

TEST(Records, ADefaultCallLogHasValuesMinusOneAndSix) {
  const MWPTypeCallLog log;
  EXPECT_EQ(log.nLogId, 0);
  EXPECT_EQ(log.nValue1, -1);
  EXPECT_EQ(log.nValue2, 6);
}

TEST(Records, ADefaultMessageHasValuesThreeAndOne) {
  const MWPTypeMessage message;
  EXPECT_EQ(message.nValue1, 3);
  EXPECT_EQ(message.nValue2, 1);
  EXPECT_EQ(message.strText1 + message.strText2 + message.strText3 + message.strText4 + message.strText5 +
                message.strText6,
            "");
}

TEST(Enumerations, TheValuesThatTheLibraryDependsOnAreFixed) {
  EXPECT_EQ(MWPBtType::BT_POWER_OFF, 0);
  EXPECT_EQ(MWPBtType::BT_POWER_ON, 1);
  EXPECT_EQ(MWPBtType::BT_POWER_TURNING_OFF, 2);
  EXPECT_EQ(MWPBtType::BT_POWER_TURNING_ON, 3);
  EXPECT_EQ(MWPBtType::BT_CAP_POWER_SWITCH, 0);
  EXPECT_EQ(MWPBtType::BT_CAP_AUTO_CONNECT, 1);
  EXPECT_EQ(MWPBtType::BT_CAP_AUTO_ANSWER, 2);
  EXPECT_EQ(MWPBtType::BT_CAP_AUTO_REJECT_INCALL, 3);
  EXPECT_EQ(MWPBtType::BT_CAP_RESERVED4, 4);
  EXPECT_EQ(MWPBtType::BT_CAP_RESERVED5, 5);
  EXPECT_EQ(MWPBtType::BT_CAP_RESERVED6, 6);
  EXPECT_EQ(MWPBtType::BT_CAP_AUTO_DOWNLOAD, 7);
  EXPECT_EQ(MWPBtType::BT_CAP_RESERVED8, 8);
  EXPECT_EQ(MWPBtType::BT_CAP_ENABLE_SCAN, 9);
  EXPECT_EQ(MWPBtType::BT_CAP_LOCAL_RING, 10);
  EXPECT_EQ(MWPBtType::BT_CAP_PARAMETER_LOADED, 11);
  EXPECT_EQ(MWPBtType::BT_CONN_UNKNOWN, 6);
  EXPECT_EQ(MWPBtType::BT_MSG_LOAD_NOT_SUPPORTED, 8);
}

TEST(Enumerations, AreAsWideAsAnInt) {
  EXPECT_EQ(sizeof(MWPBtType::PowerStatus), sizeof(int));
  EXPECT_EQ(sizeof(MWPBtType::MusicPlayStatus), sizeof(int));
  EXPECT_EQ(sizeof(CallLogType), sizeof(int));
  EXPECT_EQ(sizeof(MWPBtMessageType), sizeof(int));
  EXPECT_EQ(sizeof(ShareMemID), sizeof(int));
}

TEST(Enumerations, SegmentIdsAreTheProjectIdsOfTheirKeys) {
  EXPECT_EQ(SH_PAIRED_LIST, 0);
  EXPECT_EQ(SH_CONTACT_INFO, 1);
  EXPECT_EQ(SH_CONTACT_LIST, 2);
  EXPECT_EQ(SH_FAV_CONTACT_LIST, 3);
  EXPECT_EQ(SH_CALL_LOG_INFO, 4);
  EXPECT_EQ(SH_CALL_LOG_LIST, 5);
  EXPECT_EQ(SH_CALL_INFO_LIST, 6);
  EXPECT_EQ(SH_BT_PARAMETER, 7);
}

}  // namespace
