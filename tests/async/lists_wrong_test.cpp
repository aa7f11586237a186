// Lists that are not what was asked for: half written, cut, of another application, corrupt, or not there.

#include <gmock/gmock.h>

#include "tests/async/ListsFixture.h"

namespace {

using namespace btasync;
using bttest::CallItems;
using bttest::CallLogItems;
using bttest::ContactItems;
using bttest::DeviceItems;
using bttest::SegmentItems;
using bttest::Wait;
using bttest::WaitFor;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

using Texts = std::vector<std::string>;

const Texts kThreeTimes{"GetContactList()",  "GetContactCount()", "GetContactList()",
                        "GetContactCount()", "GetContactList()",  "GetContactCount()"};

class WrongLists : public bttest::ListsFixture {
 protected:
  template <typename T>
  void ExpectMalformed(const Answer<T>& answer, const testing::Matcher<std::string>& detail) {
    ASSERT_TRUE(answer.Failed());
    EXPECT_EQ(answer.Why().reason, Reason::Malformed);
    EXPECT_THAT(answer.Why().detail, detail);
  }

  /// Starts reading a list, and calls change each time when it has been read once and is counted.
  template <typename T, typename Change>
  Answer<T> WaitWhile(Request<T> request, const std::string& count, Change change) {
    const std::string method = count.substr(0, count.find('('));
    std::optional<Answer<T>> answer;
    Scope scope;
    recorder.Hang(method);
    std::move(request).Then(scope, [&](Answer<T> given) { answer.emplace(std::move(given)); });
    for (int time = 1; !answer; ++time) {
      EXPECT_TRUE(WaitForCall(count));
      change(time);
      recorder.Release(method);
      recorder.Hang(method);
      if (time == 3) {
        EXPECT_TRUE(bttest::RunUntil([&] { return answer.has_value(); }));
        break;
      }
      EXPECT_TRUE(bttest::RunUntil([&] { return answer.has_value() || recorder.WaitForCalls(1, {}); }));
    }
    return *std::move(answer);
  }
};

TEST_F(WrongLists, OneThatChangesBetweenTheLooksIsAskedForAgain) {
  ContactItems(2, "Old").Publish(SH_CONTACT_LIST);
  SetCount(2);
  const auto contacts = WaitWhile(service.Contacts(), "GetContactCount()", [](int time) {
    if (time == 1) {
      ContactItems(2, "New").Publish(SH_CONTACT_LIST);
    }
  });
  ASSERT_TRUE(contacts) << contacts.Why().detail;
  EXPECT_EQ(contacts->front().strText1, "New");
  EXPECT_THAT(seen,
              ElementsAre("GetContactList()", "GetContactCount()", "GetContactList()", "GetContactCount()"));
}

TEST_F(WrongLists, OneThatChangesAllTheTimeIsMalformedAfterThreeTimes) {
  ContactItems(2).Publish(SH_CONTACT_LIST);
  SetCount(2);
  const auto contacts = WaitWhile(service.Contacts(), "GetContactCount()", [](int time) {
    ContactItems(2, std::to_string(time)).Publish(SH_CONTACT_LIST);
  });
  ExpectMalformed(contacts, "SH_CONTACT_LIST has changed while it was read");
  EXPECT_EQ(seen, kThreeTimes);
}

TEST_F(WrongLists, OneWithOtherRecordsThanTheServiceCountsIsAskedForAgain) {
  ContactItems(2).Publish(SH_CONTACT_LIST);
  SetCount(3);
  ExpectMalformed(Wait(service.Contacts()), "SH_CONTACT_LIST holds 2 records, and the service has 3");
  EXPECT_EQ(recorder.TakeCallTexts(), kThreeTimes);
  SetCount(1);
  ExpectMalformed(Wait(service.Contacts()), "SH_CONTACT_LIST holds 2 records, and the service has 1");
  SetCount(-2);
  ExpectMalformed(Wait(service.Contacts()), "SH_CONTACT_LIST holds 2 records, and the service has -2");
}

TEST_F(WrongLists, OneThatFillsItsSegmentMayBeCut) {
  const std::vector<int> types(1000, CALL_LOG_INCOMING);  // of 43 bytes each, in 51,200
  CallLogItems(types).Publish(SH_CALL_LOG_LIST);
  SetCount(5000);
  const auto cut = Wait(service.CallLogs(CALL_LOG_INCOMING));
  ExpectMalformed(cut, "SH_CALL_LOG_LIST holds 1000 records, and the service has 5000");
  CallLogItems(std::vector<int>(1100, CALL_LOG_INCOMING)).Publish(SH_CALL_LOG_LIST);
  const auto full = Wait(service.CallLogs(CALL_LOG_INCOMING));
  ASSERT_TRUE(full) << full.Why().detail;
  EXPECT_EQ(full->size(), 1100u);
}

TEST_F(WrongLists, ALogOfAnotherTypeIsAskedForAgain) {
  CallLogItems({CALL_LOG_MISSED, CALL_LOG_MISSED}).Publish(SH_CALL_LOG_LIST);
  SetCount(2);
  const auto logs =
      WaitWhile(service.CallLogs(CALL_LOG_OUTGOING), "GetCallLogCount(byte 0x02,)", [](int time) {
        if (time == 2) {
          CallLogItems({CALL_LOG_OUTGOING, CALL_LOG_OUTGOING}).Publish(SH_CALL_LOG_LIST);
        }
      });
  ASSERT_TRUE(logs) << logs.Why().detail;
  EXPECT_EQ(logs->front().nValue2, CALL_LOG_OUTGOING);
  EXPECT_EQ(seen.size(), 6u) << "another log, one that changed, and then the right one";
}

TEST_F(WrongLists, ALogOfAnotherTypeIsMalformedAfterThreeTimes) {
  CallLogItems({CALL_LOG_MISSED, CALL_LOG_OUTGOING}).Publish(SH_CALL_LOG_LIST);
  SetCount(2);
  ExpectMalformed(Wait(service.CallLogs(CALL_LOG_MISSED)), "SH_CALL_LOG_LIST holds entries of another log");
  EXPECT_TRUE(Wait(service.CallLogs(CALL_LOG_ALL))) << "all types are right there";
}

TEST_F(WrongLists, AServiceMayMeanSomethingElseByTheTypeOfAnEntry) {
  CallLogItems({CALL_LOG_MISSED, 77}).Publish(SH_CALL_LOG_LIST);
  SetCount(2);
  EXPECT_TRUE(Wait(service.CallLogs(CALL_LOG_OUTGOING)));
}

struct Corrupt {
  const char* what;
  SegmentItems items;
  std::string detail;
};

TEST_F(WrongLists, CorruptOnesAreMalformedAndNothingOfThemIsAnswered) {
  const std::string kImpossible = "a count is negative or too large for the segment";
  const Corrupt kCases[] = {
      {"negative count", SegmentItems().Int(-1), "the count, at byte 0: " + kImpossible},
      {"absurd count", SegmentItems().Int(1'000'000), "the count, at byte 0: " + kImpossible},
      {"negative number of groups", SegmentItems(ContactItems(1)).Int(2).Text("Ben").Text("").Int(-1),
       "record 2, at byte 37: " + kImpossible},
      {"absurd number of numbers",
       SegmentItems(ContactItems(1)).Int(2).Text("Ben").Text("").Int(1).Int(1).Int(3'000'000),
       "record 2, at byte 37: " + kImpossible},
  };
  for (const Corrupt& corrupt : kCases) {
    SegmentItems items = corrupt.items;
    items.Publish(SH_CONTACT_LIST);
    if (std::string(corrupt.what).find("number") != std::string::npos) {
      bttest::WriteSegment(SH_CONTACT_LIST, 0, SegmentItems().Int(2).Bytes());
    }
    SetCount(2);
    ExpectMalformed(Wait(service.Contacts()), "SH_CONTACT_LIST, " + corrupt.detail);
  }
}

TEST_F(WrongLists, RecordsThatTheEndOfTheSegmentCutsOffAreMalformed) {
  const std::size_t size = kSegmentCatalogue[SH_CONTACT_LIST].size;
  SetCount(1);
  const auto publishAtEnd = [&](const SegmentItems& head, std::size_t place) {
    head.Publish(SH_CONTACT_LIST);
    bttest::WriteSegment(SH_CONTACT_LIST, place, std::vector<unsigned char>(size - place, 'x'));
  };
  publishAtEnd(SegmentItems().Int(1).Int(7), 8);
  ExpectMalformed(Wait(service.Contacts()),
                  "SH_CONTACT_LIST, record 1, at byte 4: a text has no end inside the segment");
  // A name that ends just before the segment does: there is no room for the number of groups.
  publishAtEnd(SegmentItems().Int(1).Int(7), 8);
  bttest::WriteSegment(SH_CONTACT_LIST, size - 4, {0, 0, 1, 1});
  ExpectMalformed(Wait(service.Contacts()),
                  "SH_CONTACT_LIST, record 1, at byte 4: an integer is cut off by the end of the segment");
}

TEST_F(WrongLists, WithoutASegmentTheyAreMalformedAndNoneIsMade) {
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    bttest::RemoveSegment(entry.id);
  }
  const testing::Matcher<std::string> none = StartsWith("no segment SH_");
  ExpectMalformed(Wait(service.Contacts()), none);
  ExpectMalformed(Wait(service.FavoriteContacts()), none);
  ExpectMalformed(Wait(service.CallLogs(CALL_LOG_ALL)), none);
  ExpectMalformed(Wait(service.GetContact(0)), none);
  ExpectMalformed(Wait(service.GetCallLog(1)), none);
  ExpectMalformed(Wait(service.PairedDevices()), none);
  ExpectMalformed(Wait(service.CurrentCalls()), none);
  EXPECT_EQ(bttest::CountSegments(), 0);
  bttest::RemoveServiceFile();
  ExpectMalformed(Wait(service.Contacts()), none);
}

TEST_F(WrongLists, OneInASegmentThatWasMadeAgainIsRead) {
  ContactItems(1, "Old").Publish(SH_CONTACT_LIST);
  SetCount(1);
  EXPECT_EQ(Wait(service.Contacts())->front().strText1, "Old");
  bttest::RemoveSegment(SH_CONTACT_LIST);
  bttest::CreateSegment(SH_CONTACT_LIST, kSegmentCatalogue[SH_CONTACT_LIST].size);
  ContactItems(1, "New").Publish(SH_CONTACT_LIST);
  EXPECT_EQ(Wait(service.Contacts())->front().strText1, "New");
  EXPECT_EQ(bttest::FindSegment(SH_CONTACT_LIST)->attachments, 0u) << "nothing stays attached";
}

TEST_F(WrongLists, NoMoreIsReadThanASegmentHas) {
  bttest::RemoveSegment(SH_CONTACT_LIST);
  bttest::CreateSegment(SH_CONTACT_LIST, 16);  // its page has 4,096
  bttest::WriteSegment(SH_CONTACT_LIST, 0, SegmentItems().Int(1).Int(7).Raw("xxxxxxxx").Bytes());
  SetCount(1);
  ExpectMalformed(Wait(service.Contacts()),
                  "SH_CONTACT_LIST, record 1, at byte 4: a text has no end inside the segment");
}

TEST_F(WrongLists, PairedDevicesWithoutAddressesAreMalformed) {
  DeviceItems({"00:1A:7D:DA:71:13", "Ada's phone"}).Publish(SH_PAIRED_LIST);
  ExpectMalformed(Wait(service.PairedDevices()),
                  "SH_PAIRED_LIST, record 2, at byte 50: its address is no Bluetooth address");
  SegmentItems().Int(-3).Publish(SH_PAIRED_LIST);
  ExpectMalformed(Wait(service.PairedDevices()), StartsWith("SH_PAIRED_LIST, the count, at byte 0: "));
}

TEST_F(WrongLists, PairedDevicesThatAreBeingWrittenAreLookedAtAgain) {
  // The service writes the number of records last.
  DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
  ASSERT_TRUE(Wait(service.PairedDevices()));  // the service has answered once: from now on, nothing is asked
  bttest::WriteSegment(SH_PAIRED_LIST, 0, SegmentItems().Int(0).Bytes());
  std::optional<Answer<std::vector<MWPTypeDevice>>> answer;
  Scope scope;
  service.PairedDevices().Then(scope, [&](auto given) { answer.emplace(std::move(given)); });
  // It begins in the first turn, and looks for the first time there; the next ones each look again.
  for (int turns = 0; turns < 3; ++turns) {
    g_main_context_iteration(nullptr, TRUE);
  }
  ASSERT_FALSE(answer);
  bttest::WriteSegment(SH_PAIRED_LIST, 0, SegmentItems().Int(1).Bytes());
  ASSERT_TRUE(bttest::RunUntil([&] { return answer.has_value(); }));
  ASSERT_TRUE(*answer) << answer->Why().detail;
  EXPECT_EQ((*answer)->size(), 1u);
}

TEST_F(WrongLists, PairedDevicesOfAServiceThatLeavesBytesBehindAreNone) {
  DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
  bttest::WriteSegment(SH_PAIRED_LIST, 0, SegmentItems().Int(0).Bytes());
  const auto devices = Wait(service.PairedDevices());
  ASSERT_TRUE(devices) << devices.Why().detail;
  EXPECT_TRUE(devices->empty());
}

TEST_F(WrongLists, PairedDevicesThatAreBeingWrittenAreLookedAtTenTimes) {
  DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
  ASSERT_TRUE(Wait(service.PairedDevices()));  // the service has answered once: from now on, nothing is asked
  // Each look is a turn of the loop.
  const auto turns = [this] {
    bool isAnswered = false;
    Scope scope;
    service.PairedDevices().Then(scope, [&](const auto&) { isAnswered = true; });
    int count = 0;
    while (!isAnswered) {
      count += g_main_context_iteration(nullptr, TRUE) ? 1 : 0;
    }
    return count;
  };
  const int withOneLook = turns();
  bttest::WriteSegment(SH_PAIRED_LIST, 0, SegmentItems().Int(0).Bytes());
  EXPECT_EQ(turns(), withOneLook + 9);
}

TEST_F(WrongLists, CurrentCallsThatAreCorruptAreMalformed) {
  SegmentItems().Int(-1).Publish(SH_CALL_INFO_LIST);
  ExpectMalformed(Wait(service.CurrentCalls()), StartsWith("SH_CALL_INFO_LIST, the count, at byte 0: "));
  CallItems(1).Publish(SH_CALL_INFO_LIST);
  const std::size_t size = kSegmentCatalogue[SH_CALL_INFO_LIST].size;
  bttest::WriteSegment(SH_CALL_INFO_LIST, 48, std::vector<unsigned char>(size - 48, 'x'));
  ExpectMalformed(Wait(service.CurrentCalls()), HasSubstr("a text has no end inside the segment"));
}

TEST_F(WrongLists, TablesThatADeadServiceHasLeftBehindAreNotRead) {
  DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
  CallItems(65).Publish(SH_CALL_INFO_LIST);
  ASSERT_TRUE(Wait(service.PairedDevices()));
  recorder.ReleaseName();
  ASSERT_TRUE(WaitFor(service, Availability::Absent));
  EXPECT_EQ(Wait(service.PairedDevices()).Why().reason, Reason::NoService);
  EXPECT_EQ(Wait(service.CurrentCalls()).Why().reason, Reason::NoService);
  bus.Stop();
  ASSERT_TRUE(WaitFor(service, Availability::NoBus));
  EXPECT_EQ(Wait(service.CurrentCalls()).Why().reason, Reason::NoBus);
}

}  // namespace
