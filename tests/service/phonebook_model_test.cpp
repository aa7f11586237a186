#include <functional>

#include <malloc.h>

#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

class PhoneBookModelTest : public ModelTest {
 protected:
  PhoneBookModelTest() { PairBeforehand(kSmartphone); }
  PhoneBookControl& PhoneBook() { return Stack().PhoneBook(); }
  PhoneData& Phone() { return Device(kSmartphone).phone; }

  void Connect() { ConnectDevice(kSmartphone, BT_PROFILE_HFP); }
  void Download(PbapType type = BT_PBAP_ALL) {
    ASSERT_TRUE(PhoneBook().StartDownload(type));
    Pass(1min);
  }
  /// The bytes that are in use afterwards and were not before.
  static long BytesThatRemainOf(const std::function<void()>& action) {
    const auto inUse = [] {
      const struct mallinfo2 info = mallinfo2();
      return static_cast<long>(info.uordblks + info.hblkhd);
    };
    const long before = inUse();
    action();
    return inUse() - before;
  }
  std::vector<PbapStatus> Stages() const { return log.Values(&DownloadStatusChanged::status); }
};

TEST_F(PhoneBookModelTest, ADownloadComesInStepsWithProgress) {
  world.delays.downloadStepSize = 8;
  Connect();
  EXPECT_TRUE(PhoneBook().StartDownload(BT_PBAP_PHONE_BOOK));
  Pass(world.delays.downloadStart + world.delays.downloadStep);
  EXPECT_EQ(PhoneBook().Contacts().size(), 8U);
  Pass(1s);
  EXPECT_THAT(Stages(), ElementsAre(BT_PBAP_CONNECTING, BT_PBAP_DOWNLOADING, BT_PBAP_COMPLETED));
  EXPECT_THAT(log.Values(&DownloadStatusChanged::type), Each(BT_PBAP_PHONE_BOOK));
  EXPECT_THAT(log.Values(&DownloadProgress::current), ElementsAre(0, 8, 16, 20));
  EXPECT_THAT(log.Values(&DownloadProgress::total), Each(20));
  ASSERT_EQ(PhoneBook().Contacts().size(), 20U);
  EXPECT_EQ(PhoneBook().Contacts()[0].firstName, "Ada");
  EXPECT_EQ(PhoneBook().Contacts()[0].numbers.size(), 3U);
}

TEST_F(PhoneBookModelTest, EverythingIsOneAfterTheOther) {
  Connect();
  Download();
  EXPECT_THAT(log.Values(&DownloadStatusChanged::type),
              ElementsAre(BT_PBAP_ALL, BT_PBAP_PHONE_BOOK, BT_PBAP_PHONE_BOOK, BT_PBAP_SIM_PHONE_BOOK,
                          BT_PBAP_SIM_PHONE_BOOK, BT_PBAP_COMBINED_HISTORY, BT_PBAP_ALL));
  EXPECT_EQ(Stages().back(), BT_PBAP_COMPLETED);
  EXPECT_EQ(PhoneBook().Contacts().size(), 21U);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL).size(), 5U);
  EXPECT_EQ(log.Count<CallLogsChanged>(), 1U);
}

TEST_F(PhoneBookModelTest, ASecondDownloadReplacesTheFirst) {
  Connect();
  Download();
  Download();
  EXPECT_EQ(PhoneBook().Contacts().size(), 21U);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL).size(), 5U);
}

TEST_F(PhoneBookModelTest, CallLogsCanBeFetchedByType) {
  Connect();
  Download(BT_PBAP_MISSED_HISTORY);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL).size(), 2U);
  EXPECT_THAT(PhoneBook().CallLogs(CALL_LOG_ALL), Each(Field(&CallLogEntry::type, CALL_LOG_MISSED)));
}

TEST_F(PhoneBookModelTest, AStoppedDownloadKeepsWhatHasArrived) {
  world.delays.downloadStepSize = 8;
  Connect();
  PhoneBook().StartDownload(BT_PBAP_PHONE_BOOK);
  Pass(world.delays.downloadStart + world.delays.downloadStep);
  EXPECT_TRUE(PhoneBook().StopDownload());
  Pass(1min);
  EXPECT_THAT(Stages(), ElementsAre(BT_PBAP_CONNECTING, BT_PBAP_DOWNLOADING, BT_PBAP_STOPPED));
  EXPECT_EQ(PhoneBook().Contacts().size(), 8U);
  EXPECT_FALSE(PhoneBook().StopDownload());
}

TEST_F(PhoneBookModelTest, ADownloadThatHasEndedKeepsNoContacts) {
  Contact contact = Phone().contacts.at(0);
  Phone().contacts.assign(4096, contact);
  world.delays.downloadStepSize = 4096;
  Connect();
  std::vector<Contact> copy;
  const long bytesOfACopy = BytesThatRemainOf([&] { copy = Phone().contacts; });
  // Memory is measured nowhere where a sanitizer has taken malloc's place: all is 0 bytes there.
  EXPECT_LE(BytesThatRemainOf([this] { Download(BT_PBAP_PHONE_BOOK); }), bytesOfACopy * 3 / 2);
  EXPECT_EQ(PhoneBook().Contacts().size(), 4096U);
}

TEST_F(PhoneBookModelTest, ADownloadThatHasEndedKeepsNoCallLogs) {
  const std::string number(100000, '1');
  for (CallLogEntry& entry : Phone().callLogs) {
    entry.number = number;
  }
  Connect();
  std::vector<CallLogEntry> copy;
  const long bytesOfACopy = BytesThatRemainOf([&] { copy = Phone().callLogs; });
  EXPECT_LE(BytesThatRemainOf([this] { Download(BT_PBAP_COMBINED_HISTORY); }), bytesOfACopy * 3 / 2);
  EXPECT_THAT(PhoneBook().CallLogs(CALL_LOG_ALL), Each(Field(&CallLogEntry::number, number)));
}

TEST_F(PhoneBookModelTest, APhoneMayKeepItsPhoneBookToItself) {
  Phone().sharesPhoneBook = false;
  Connect();
  Download();
  EXPECT_THAT(Stages(), ElementsAre(BT_PBAP_CONNECTING, BT_PBAP_REFUSED));
}

TEST_F(PhoneBookModelTest, LosingThePhoneFailsTheDownload) {
  Connect();
  PhoneBook().StartDownload(BT_PBAP_ALL);
  Pass(world.delays.downloadStart);
  Stack().FromOutside().LoseLink(kSmartphone);
  EXPECT_EQ(Stages().back(), BT_PBAP_FAILED);
  Pass(1min);
  EXPECT_EQ(Stages().back(), BT_PBAP_FAILED);
}

TEST_F(PhoneBookModelTest, WhatCannotBeDownloadedIsRefused) {
  PowerOn();
  EXPECT_FALSE(PhoneBook().StartDownload(BT_PBAP_ALL)) << "no phone";
  Connect();
  EXPECT_FALSE(PhoneBook().StartDownload(static_cast<PbapType>(99)));
  EXPECT_TRUE(PhoneBook().StartDownload(BT_PBAP_ALL));
  EXPECT_FALSE(PhoneBook().StartDownload(BT_PBAP_ALL)) << "one at a time";
}

TEST_F(PhoneBookModelTest, IsDownloadedWithoutAskingIfTheSettingsSaySo) {
  world.settings.capabilities[BT_CAP_AUTO_DOWNLOAD] = 1;
  Connect();
  EXPECT_EQ(PhoneBook().Contacts().size(), 21U);
}

TEST_F(PhoneBookModelTest, AnEmptyPhoneBookIsCompleteAtOnce) {
  Phone().contacts.clear();
  Connect();
  Download(BT_PBAP_PHONE_BOOK);
  EXPECT_THAT(Stages(), ElementsAre(BT_PBAP_CONNECTING, BT_PBAP_DOWNLOADING, BT_PBAP_COMPLETED));
}

TEST_F(PhoneBookModelTest, ContactsAreDeleted) {
  Connect();
  Download(BT_PBAP_PHONE_BOOK);
  EXPECT_TRUE(PhoneBook().DeleteContact(1));
  EXPECT_FALSE(PhoneBook().DeleteContact(1));
  EXPECT_EQ(PhoneBook().Contacts().size(), 19U);
  EXPECT_TRUE(PhoneBook().ClearContacts());
  EXPECT_THAT(PhoneBook().Contacts(), IsEmpty());
  Pass(world.delays.phoneBookEdit);
  EXPECT_THAT(log.Values(&ContactsDeleted::success), ElementsAre(true, true));
}

TEST_F(PhoneBookModelTest, ContactsBecomeFavourites) {
  Connect();
  Download(BT_PBAP_PHONE_BOOK);
  EXPECT_TRUE(PhoneBook().SetFavorite(3, true));
  EXPECT_TRUE(PhoneBook().SetFavorite(1, true));
  EXPECT_FALSE(PhoneBook().SetFavorite(999, true));
  EXPECT_THAT(PhoneBook().Favorites(), ElementsAre(Field(&Contact::id, 1), Field(&Contact::id, 3)));
  EXPECT_TRUE(PhoneBook().SetFavorite(1, false));
  EXPECT_THAT(PhoneBook().Favorites(), ElementsAre(Field(&Contact::id, 3)));
  Pass(world.delays.phoneBookEdit);
  EXPECT_THAT(log.Values(&FavoriteChanged::contactId), ElementsAre(3, 1, 1));
  EXPECT_THAT(log.Values(&FavoriteChanged::favorite), ElementsAre(true, true, false));
}

TEST_F(PhoneBookModelTest, FavouritesSurviveADownload) {
  Connect();
  Download(BT_PBAP_PHONE_BOOK);
  PhoneBook().SetFavorite(3, true);
  Download(BT_PBAP_PHONE_BOOK);
  EXPECT_THAT(PhoneBook().Favorites(), ElementsAre(Field(&Contact::id, 3)));
}

TEST_F(PhoneBookModelTest, AllOfItGoesWithThePhone) {
  Connect();
  Download();
  log.Clear();
  Stack().Devices().Disconnect(kSmartphone, BT_PROFILE_HFP);
  Pass(world.delays.disconnect);
  EXPECT_THAT(PhoneBook().Contacts(), IsEmpty());
  EXPECT_THAT(PhoneBook().CallLogs(CALL_LOG_ALL), IsEmpty());
  EXPECT_EQ(log.Count<CallLogsChanged>(), 1U);
}

TEST_F(PhoneBookModelTest, CallLogsAreListedTheLatestFirst) {
  Connect();
  Download();
  const std::vector<CallLogEntry> logs = PhoneBook().CallLogs(CALL_LOG_ALL);
  EXPECT_THAT(logs,
              ElementsAre(Field(&CallLogEntry::time, "18:05:10"), Field(&CallLogEntry::time, "17:40:00"),
                          Field(&CallLogEntry::time, "12:13:14"), Field(&CallLogEntry::time, "09:30:00"),
                          Field(&CallLogEntry::time, "08:01:59")));
  EXPECT_EQ(logs[0].name, "Ben Baker");
  EXPECT_EQ(logs[0].contactId, 2);
}

TEST_F(PhoneBookModelTest, CallLogsAreDeletedByIdAndByType) {
  Connect();
  Download();
  const int id = PhoneBook().CallLogs(CALL_LOG_INCOMING)[0].id;
  EXPECT_TRUE(PhoneBook().DeleteCallLog(id));
  EXPECT_FALSE(PhoneBook().DeleteCallLog(id));
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_INCOMING).size(), 1U);
  EXPECT_TRUE(PhoneBook().ClearCallLogs(CALL_LOG_MISSED));
  EXPECT_THAT(PhoneBook().CallLogs(CALL_LOG_MISSED), IsEmpty());
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL).size(), 2U);
  EXPECT_TRUE(PhoneBook().ClearCallLogs(CALL_LOG_ALL));
  EXPECT_THAT(PhoneBook().CallLogs(CALL_LOG_ALL), IsEmpty());
  EXPECT_FALSE(PhoneBook().ClearCallLogs(static_cast<CallLogType>(9)));
}

TEST_F(PhoneBookModelTest, ADownloadGivesTheContactsThatThereWereWhenItWasAskedFor) {
  world.delays.downloadStepSize = 1;
  Connect();
  const std::size_t before = Device(kSmartphone).phone.contacts.size();
  ASSERT_GT(before, 1U);
  ASSERT_TRUE(PhoneBook().StartDownload(BT_PBAP_PHONE_BOOK));
  Pass(world.delays.downloadStart + world.delays.downloadStep);
  EXPECT_TRUE(Stack().FromOutside().SetContacts(kSmartphone, {Contact()}));
  Pass(1min);
  EXPECT_EQ(PhoneBook().Contacts().size(), before);
  Download(BT_PBAP_PHONE_BOOK);
  EXPECT_EQ(PhoneBook().Contacts().size(), 1U);
}

TEST_F(PhoneBookModelTest, CallsEnterTheLogs) {
  world.startTime = 1780000000;
  Connect();
  Download(BT_PBAP_PHONE_BOOK);
  Outside& outside = Stack().FromOutside();
  outside.Call(kSmartphone, "0049 170 555101");
  Stack().Calls().Accept();
  Pass(5s);
  Stack().Calls().HangUp();
  Pass(1s);
  outside.Call(kSmartphone, "+49170555102");
  Pass(world.delays.ringTimeout);
  outside.Call(kSmartphone, "+49170555103");
  Stack().Calls().Reject();
  Stack().Calls().Dial("112");
  Stack().Calls().HangUp();
  Pass(world.delays.phoneBookEdit);
  ASSERT_EQ(PhoneBook().CallLogs(CALL_LOG_INCOMING).size(), 2U);
  const CallLogEntry answered = PhoneBook().CallLogs(CALL_LOG_INCOMING)[1];
  EXPECT_EQ(answered.name, "Ben Baker") << "however the number is written";
  EXPECT_EQ(answered.seconds, 5);
  EXPECT_EQ(answered.date.size(), 10U);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_INCOMING)[0].number, "+49170555103");
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_MISSED).size(), 1U);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_OUTGOING).size(), 1U);
  EXPECT_EQ(log.Count<CallLogsChanged>(), 4U);
}

TEST_F(PhoneBookModelTest, OldCallsLeaveTheLogs) {
  Connect();
  for (int i = 0; i < 600; ++i) {
    ASSERT_TRUE(Stack().Calls().Dial("112"));
    Stack().Calls().HangUp();
    Pass(1s);
  }
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL).size(), 500U);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL)[0].id, 600);
  Download(BT_PBAP_COMBINED_HISTORY);
  EXPECT_EQ(PhoneBook().CallLogs(CALL_LOG_ALL).size(), 500U) << "so does the phone forget them";
}

TEST_F(PhoneBookModelTest, ACallShowsTheNameOfItsContact) {
  Connect();
  Stack().FromOutside().Call(kSmartphone, "+49170555101");
  EXPECT_EQ(Stack().Calls().Calls()[0].name, "");
  Download(BT_PBAP_PHONE_BOOK);
  Stack().FromOutside().Call(kSmartphone, "+49170555101");
  EXPECT_EQ(Stack().Calls().Calls()[0].name, "Ben Baker");
}

}  // namespace
}  // namespace btservice
