// What a phone holds, and the head unit shows: contacts, call logs, tracks.

#include <list>

#include <gmock/gmock.h>

#include "tests/conformance/Car.h"

namespace conformance {
namespace {

using testing::ElementsAre;

class ContentTest : public ConformanceTest {
 protected:
  /// Requests a download. One that began by itself, with what the phone held before, may have to end first.
  void Download() {
    ASSERT_TRUE(Eventually([&] { return car.book.StartPhoneBookDownload(BT_PBAP_ALL) != 0; }));
  }
};

TEST_F(ContentTest, TheContactsAreThoseOfThePhone) {
  CONFORMANCE_NEEDS("SetContacts");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(phone.Do("SetContacts", kPhone,
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nN:S\u00f8rensen;Nora;;;\r\nTEL;TYPE=CELL:+49170555\r\n"
                       "TEL;TYPE=HOME:+4930555\r\nEND:VCARD\r\n"));
  ASSERT_NO_FATAL_FAILURE(Download());
  std::list<MWPTypeContact> contacts;
  ASSERT_TRUE(Eventually([&] { return car.book.GetContactList(contacts) != 0 && contacts.size() == 1; }));
  EXPECT_EQ(car.book.GetContactCount(), 1);
  EXPECT_EQ(contacts.front().strText1, "Nora");
  EXPECT_EQ(contacts.front().strText2, "S\u00f8rensen");
  std::vector<std::string> numbers;
  for (const MWPTypeContactNumber& group : contacts.front().listNumbers) {
    numbers.insert(numbers.end(), group.vecValues.begin(), group.vecValues.end());
  }
  EXPECT_THAT(numbers, ElementsAre("+49170555", "+4930555"));
}

TEST_F(ContentTest, TheContactsAreThereForAnApplicationThatComesAfterTheDownload) {
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  car.EndApplication();
  car.StartApplication();
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_GT(car.book.GetContactCount(), 0);
}

/// Waits until a list has so many contacts; the id of the first.
int FirstOf(MWPBtPbap& book, int (MWPBtPbap::*list)(std::list<MWPTypeContact>&), std::size_t count) {
  int id = -1;
  EXPECT_TRUE(Eventually([&] {
    std::list<MWPTypeContact> contacts;
    (book.*list)(contacts);
    id = contacts.empty() ? -1 : contacts.front().nContactId;
    return contacts.size() == count;
  }));
  return id;
}

TEST_F(ContentTest, TheFavouritesAreThoseThatWereChosen) {
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  const int count = car.book.GetContactCount();
  ASSERT_GT(count, 0);
  const int id = FirstOf(car.book, &MWPBtPbap::GetContactList, static_cast<std::size_t>(count));
  EXPECT_NE(car.book.SetContactFavorite(id, 1), 0);
  EXPECT_EQ(FirstOf(car.book, &MWPBtPbap::GetFavContactList, 1), id);
  EXPECT_NE(car.book.SetContactFavorite(id, 0), 0);
  FirstOf(car.book, &MWPBtPbap::GetFavContactList, 0);
}

TEST_F(ContentTest, NothingIsLeftOfContactsThatWereDeleted) {
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  ASSERT_GT(car.book.GetContactCount(), 0);
  EXPECT_NE(car.book.ClearContact(), 0);
  EXPECT_TRUE(Eventually([&] { return car.book.GetContactCount() == 0; }));
  FirstOf(car.book, &MWPBtPbap::GetContactList, 0);
}

TEST_F(ContentTest, TheCallLogIsThatOfThePhone) {
  CONFORMANCE_NEEDS("AddCallLog");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(
      phone.Do("AddCallLog", kPhone,
               R"({"type": "missed", "number": "+49170556", "date": "2030-05-29", "time": "18:05:10"})"));
  ASSERT_NO_FATAL_FAILURE(Download());
  std::list<MWPTypeCallLog> logs;
  ASSERT_TRUE(Eventually([&] {
    return car.book.GetCallLogList(CALL_LOG_MISSED, logs) != 0 && !logs.empty() &&
           logs.front().strText2 == "+49170556";
  }));
  EXPECT_EQ(logs.front().strText3, "2030-05-29");
  EXPECT_EQ(logs.front().strText4, "18:05:10");
}

TEST_F(ContentTest, TheTrackIsThatOfThePlayer) {
  CONFORMANCE_NEEDS("SetTracks");
  ASSERT_NO_FATAL_FAILURE(car.ConnectPhone());
  EXPECT_TRUE(phone.Do("SetTracks", kPhone,
                       R"([{"uid": "n1", "title": "First", "artist": "Nora", "lengthMs": 3600000},
                           {"uid": "n2", "title": "Second", "lengthMs": 3600000}])"));
  const auto plays = [&](const char* title) {
    return Eventually([&] {
      MWPTypeMediaInfo info;
      return car.music.GetMediaInfo(info) != 0 && info.title == title;
    });
  };
  EXPECT_NE(car.music.PlayMusic(0, 0), 0);
  EXPECT_TRUE(plays("First"));
  EXPECT_NE(car.music.NextMusic(), 0);
  EXPECT_TRUE(plays("Second"));
}

}  // namespace
}  // namespace conformance
