// What is special about MWPBtPbap, and a low-energy method for all that answer the power status.

#include <list>

#include <gtest/gtest.h>

#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtPbap.h>

#include "contract/AskedLibrary.h"

namespace bttest {
namespace {

class FailingService : public AskedLibrary {};

TEST_F(FailingService, GetContactListAnswersOneAndLeavesTheListAsItWas) {
  std::list<MWPTypeContact> contacts(3);
  library.recorder.FailNext("GetContactList");
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  EXPECT_EQ(contacts.size(), 3u);

  library.recorder.FailNext("GetFavContactList");
  EXPECT_EQ(MWPBtPbap().GetFavContactList(contacts), 1);
  EXPECT_EQ(contacts.size(), 3u);
  EXPECT_EQ(log.OfLevel(100).size(), 2u);
}

TEST_F(FailingService, GetContactListAnswersOneWhileTheClientIsNotReady) {
  std::list<MWPTypeContact> contacts(3);
  MWPBtClient::m_bServiceReady = 0;
  EXPECT_EQ(MWPBtPbap().GetContactList(contacts), 1);
  EXPECT_EQ(MWPBtPbap().GetFavContactList(contacts), 1);
  EXPECT_EQ(contacts.size(), 3u);
  EXPECT_TRUE(library.recorder.TakeCalls().empty());
}

TEST_F(FailingService, LowEnergyMethodsAnswerAPowerStatusOfZero) {
  library.recorder.FailNext("GetPowerStatus");
  EXPECT_EQ(MWPBtBle().BleGATTReadChar(17), 0);
  EXPECT_EQ(log.OfLevel(100).size(), 1u);
}

TEST_F(FailingService, StopPhoneBookDownloadLogsItsLineBeforeTheClientsAndTheError) {
  library.recorder.FailNext("StopPhoneBookDownload");
  EXPECT_EQ(MWPBtPbap().StopPhoneBookDownload(), 0);
  const std::vector<LogRecord> records = log.Records();
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].line, 26);
  EXPECT_EQ(records[1].line, 655);
  EXPECT_EQ(records[2].level, 100);
}

}  // namespace
}  // namespace bttest
