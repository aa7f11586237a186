// In a fresh IPC namespace, as after a boot, the kernel gives the first segments the identifiers 0 to 7. An
// application that ends in good order removes the segments of these numbers, whoever uses them.

#include <csignal>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/Segments.h"
#include "service/stack/StackTypes.h"
#include "support/Segments.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using bttest::ChildProcess;

constexpr int kLastSmall = 7;
constexpr const char* kPhone = "00:1A:7D:DA:71:13";

class SmallIdentifiersTest : public testing::Test {
 protected:
  SmallIdentifiersTest() {
    // One is used up here, to see that the namespace is fresh: the next ones are small, too.
    EXPECT_EQ(bttest::MakeDummySegments(1).front(), 0);
  }

  static void ExpectSegmentsWithLargeIdentifiers() {
    for (const SegmentEntry& entry : kSegmentCatalogue) {
      const auto segment = bttest::FindSegment(entry.id);
      ASSERT_TRUE(segment) << entry.name;
      EXPECT_GT(segment->identifier, kLastSmall) << entry.name;
    }
    EXPECT_EQ(bttest::CountSegments(), 1 + static_cast<int>(std::size(kSegmentCatalogue)))
        << "those that used up the numbers are gone";
  }

  /// A phone of this world is paired, and the built-in settings connect and download without asking. Nobody
  /// gives up ringing.
  static std::vector<std::string> World() { return {"--speed", "20", "--world", BTTEST_FULL_WORLD}; }
  static void WaitForPhone(RunningService& service) {
    ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  }

  /// One application ends in good order. The other has to see the contacts and the call that come after that.
  static void ExpectTheOtherGoesOn(RunningService& service, ChildProcess& first, ChildProcess& other) {
    ASSERT_TRUE(first.WaitForOutput("ready\n")) << first.Errors();
    ASSERT_TRUE(other.WaitForOutput("ready\n")) << other.Errors();
    first.Signal(SIGTERM);
    ASSERT_EQ(first.Wait(), 0) << first.Errors();

    ASSERT_EQ(service.Ask("StartPhoneBookDownload", g_variant_new("(y)", BT_PBAP_PHONE_BOOK)), "(true,)");
    EXPECT_TRUE(other.WaitForOutput("contacts 6 ")) << other.Output();
    ASSERT_EQ(service.Control("Call", g_variant_new("(ss)", kPhone, "+49170000002")), "(true,)");
    EXPECT_TRUE(other.WaitForOutput("calls 1 +49170000002\n")) << other.Output();
  }
};

TEST_F(SmallIdentifiersTest, NoSegmentOfTheServiceHasOne) {
  RunningService service;
  ASSERT_EQ(service.Ask("GetPowerStatus").substr(0, 6), "(byte ");
  ExpectSegmentsWithLargeIdentifiers();
}

TEST_F(SmallIdentifiersTest, ASegmentThatIsMadeAnewHasNoneEither) {
  RunningService service;
  ASSERT_EQ(service.Ask("GetPowerStatus").substr(0, 6), "(byte ") << "it is ready";
  bttest::RemoveSegment(SH_CONTACT_LIST);
  ASSERT_EQ(service.Ask("GetContactList"), "(true,)");
  ExpectSegmentsWithLargeIdentifiers();
}

TEST_F(SmallIdentifiersTest, ReservingUsesThemUpAndLeavesNothing) {
  ChildProcess reserve({kExecutable, "--reserve"}, {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}});
  EXPECT_EQ(reserve.Wait(), 0) << "no bus is needed";
  EXPECT_EQ(reserve.Output() + reserve.Errors(), "");
  EXPECT_EQ(bttest::CountSegments(), 1) << "the one of this test";
  EXPECT_GT(bttest::MakeDummySegments(1).front(), kLastSmall);
}

TEST_F(SmallIdentifiersTest, WhatOthersMadeBeforeStays) {
  const int identifier = bttest::CreateSegment(SH_CONTACT_LIST, kSegmentCatalogue[SH_CONTACT_LIST].size);
  ASSERT_LE(identifier, kLastSmall);
  ChildProcess reserve({kExecutable, "--reserve"});
  EXPECT_EQ(reserve.Wait(), 0);
  EXPECT_EQ(bttest::FindSegment(SH_CONTACT_LIST)->identifier, identifier);
  EXPECT_GT(bttest::MakeDummySegments(1).front(), kLastSmall);
}

TEST_F(SmallIdentifiersTest, ReservingThatFailsSaysSoWithAStatusOfItsOwn) {
  // The system may have as many segments as there are: that of this test.
  const int count = bttest::CountSegments();
  std::ofstream("/proc/sys/kernel/shmmni") << count;
  int limit = 0;
  std::ifstream("/proc/sys/kernel/shmmni") >> limit;
  if (limit != count) {
    GTEST_SKIP() << "the number of segments cannot be limited here";
  }
  ChildProcess reserve({kExecutable, "--reserve"});
  EXPECT_EQ(reserve.Wait(), 6);
  EXPECT_NE(reserve.Errors().find("No space left on device"), std::string::npos) << reserve.Errors();
  EXPECT_EQ(bttest::CountSegments(), count);
}

TEST_F(SmallIdentifiersTest, TheServiceFirst) {
  RunningService service(World());
  WaitForPhone(service);
  ChildProcess first({BTTEST_LISTENING_CLIENT});
  ChildProcess other({BTTEST_LISTENING_CLIENT});
  ExpectTheOtherGoesOn(service, first, other);
}

TEST_F(SmallIdentifiersTest, ReserveThenApplicationThenService) {
  ASSERT_EQ(ChildProcess({kExecutable, "--reserve"}).Wait(), 0);
  RunningService service(World(), RunningService::Begin::LATER);
  ChildProcess first({BTTEST_LISTENING_CLIENT, "wait"});
  ASSERT_TRUE(first.WaitForOutput("waiting\n")) << first.Errors();
  ExpectSegmentsWithLargeIdentifiers();
  service.Start();
  WaitForPhone(service);
  ChildProcess other({BTTEST_LISTENING_CLIENT});
  ExpectTheOtherGoesOn(service, first, other);
}

}  // namespace
}  // namespace btservice
