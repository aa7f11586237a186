// Creation and destruction of the client, and the two flags in each state between.

#include <memory>

#include <gmock/gmock.h>

#include <bluetooth/MWPBtCom.h>

#include "ipc/ShareMemory/ShareMemory.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const LogRecord kBaseLine{"include/bluetooth/IMWPBtListenerBase", "IMWPBtListenerBase", 26, 20,
                          "IMWPBtListenerBase constructor"};
const LogRecord kExitLine{"libbluetooth/MWPBtClient", "ExitInstance", 64, 40, "ExitInstance()"};

/// Who logged, in order: "source function" and how many lines in a row.
std::vector<std::string> Sections(const std::vector<LogRecord>& records) {
  std::vector<std::string> sections;
  for (auto record = records.begin(); record != records.end();) {
    const auto first = record;
    while (record != records.end() && record->file == first->file && record->function == first->function) {
      ++record;
    }
    sections.push_back(first->file + ' ' + first->function + " x" + std::to_string(record - first));
  }
  return sections;
}

struct Lifecycle : WithBus {};
struct LifecycleWithService : WithService {};
struct LifecycleStarted : Started {};

TEST_F(LifecycleWithService, CreateMakesTheBaseTheSegmentsAndTheSettingsAndThenConnects) {
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_THAT(Sections(log.Records()),
              ElementsAre("include/bluetooth/IMWPBtListenerBase IMWPBtListenerBase x1",
                          "ipc/BtClientIpcAdapter InitAllShareMemory x8",
                          // Eight settings, none persisted yet: the failure, then the value.
                          "ipc/BtClientIpcAdapter LoadPersistDataToSharemenory x16",
                          "ipc/BtClientIpcAdapter InitDBusConnect x2"));
  EXPECT_EQ(log.Records().front(), kBaseLine);
  EXPECT_THAT(log.Complaints(), IsEmpty());
}

TEST_F(Lifecycle, TheFirstUseMakesAllOfTheClientButTheConnection) {
  ASSERT_EQ(Client::ms_pSingleton, nullptr);
  LogCapture log;
  MWPBtClient* const client = Client::GetInstance();
  EXPECT_EQ(client, Client::ms_pSingleton);
  EXPECT_EQ(client->m_nType, MAX_LISTENER);
  EXPECT_EQ(client->GetListenerCount(), 0u) << "the client is no listener of its own";
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    EXPECT_NE(ShareMemory::GetShareMemory(static_cast<ShareMemID>(id)), nullptr) << id;
  }
  EXPECT_THAT(log.OfFunction("InitDBusConnect"), IsEmpty());
  EXPECT_EQ(g_BtProxy, nullptr);
}

// The states, and the flags in each of them

TEST_F(Lifecycle, UnloadedThereIsNoClientAndTheFlagsAreZero) {
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(LifecycleWithService, CreatedByAListenerTheClientIsThereAndTheFlagsAreZero) {
  PowerEvents listener;
  EXPECT_NE(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(LifecycleStarted, StartedTheClientIsThereAndTheFlagsAreOne) {
  EXPECT_NE(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 1);
}

TEST_F(Lifecycle, AfterAFailedStartTheClientIsThereAndTheFlagsAreZero) {
  EXPECT_EQ(MWP_CreateBlueTooth(), 0);
  EXPECT_NE(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(LifecycleStarted, DestroyedThereIsNoClientAndTheFlagsAreZero) {
  MWP_DestroyBlueTooth();
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(Lifecycle, TheFacadesMakeNoClientWhileTheFlagsAreZero) {
  std::string value = "as it was";
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), 0);
  EXPECT_EQ(MWPBtCom().GetAttribute(MWPBtType::BT_ATTR_LOCAL_NAME, value), 0);
  EXPECT_EQ(value, "as it was");
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
}

// Create again

TEST_F(LifecycleStarted, ASecondCreateAnswersTheFirstsResultAndDoesNotConnectAgain) {
  MWPBtClient* const client = Client::ms_pSingleton;
  ComZelkLinuxBluetooth* const proxy = g_BtProxy;
  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_EQ(Client::ms_pSingleton, client);
  EXPECT_EQ(g_BtProxy, proxy);
  EXPECT_THAT(log.Records(), IsEmpty());
  EXPECT_EQ(Flags(), 1);
}

TEST_F(LifecycleStarted, ASecondCreateAnswersTheFirstsResultEvenIfTheServiceHasGone) {
  service.Kill();
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
}

TEST_F(Lifecycle, CreateAfterAFailedOneConnectsAgain) {
  Recorder service(Recorder::Name::NOT_YET);
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  MWPBtClient* const client = Client::ms_pSingleton;
  ComZelkLinuxBluetooth* const proxy = g_BtProxy;
  service.OwnName();

  LogCapture log;
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_EQ(Client::ms_pSingleton, client);
  EXPECT_NE(g_BtProxy, proxy);
  EXPECT_EQ(Flags(), 1);
  EXPECT_THAT(Sections(log.Records()), ElementsAre("ipc/BtClientIpcAdapter InitDBusConnect x2"));
  EXPECT_EQ(FindSegment(SH_BT_PARAMETER)->attachments, 1u) << "the segments stay attached between";
}

// Destroy

TEST_F(LifecycleStarted, DestroyLogsExitInstanceAndNothingElse) {
  LogCapture log;
  MWP_DestroyBlueTooth();
  EXPECT_THAT(log.Records(), ElementsAre(kExitLine));
}

TEST_F(Lifecycle, DestroyAfterAFailedStartRunsNoExitInstance) {
  ASSERT_EQ(MWP_CreateBlueTooth(), 0);
  LogCapture log;
  MWP_DestroyBlueTooth();
  EXPECT_THAT(log.Records(), IsEmpty());
}

TEST_F(Lifecycle, DestroyWithoutCreateMakesAClientOnlyToDeleteIt) {
  ASSERT_FALSE(FindSegment(SH_CONTACT_LIST));
  LogCapture log;
  MWP_DestroyBlueTooth();
  EXPECT_EQ(log.Records().front(), kBaseLine);
  EXPECT_THAT(log.OfFunction("InitAllShareMemory"), SizeIs(8));
  EXPECT_TRUE(FindSegment(SH_CONTACT_LIST));
  EXPECT_THAT(log.OfFunction("ExitInstance"), IsEmpty());
  EXPECT_THAT(log.OfFunction("InitDBusConnect"), IsEmpty());
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(LifecycleStarted, ASecondDestroyMakesAndDeletesAFreshClient) {
  MWP_DestroyBlueTooth();
  LogCapture log;
  MWP_DestroyBlueTooth();
  // The parameter segment still says that the settings are loaded.
  EXPECT_THAT(Sections(log.Records()),
              ElementsAre("include/bluetooth/IMWPBtListenerBase IMWPBtListenerBase x1",
                          "ipc/BtClientIpcAdapter InitAllShareMemory x8"));
  EXPECT_EQ(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Flags(), 0);
}

TEST_F(LifecycleStarted, CreateAfterDestroyStartsAFreshClient) {
  MWP_DestroyBlueTooth();
  PowerEvents listener;
  EXPECT_EQ(Flags(), 0) << "a listener's client is not started";
  EXPECT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_EQ(Flags(), 1);
  service.SetReply("GetPowerStatus", g_variant_new("(y)", MWPBtType::BT_POWER_ON));
  EXPECT_EQ(MWPBtCom().GetPowerStatus(), MWPBtType::BT_POWER_ON);
  EmitPower(service, MWPBtType::BT_POWER_OFF);
  EXPECT_TRUE(RunUntil([&] { return !listener.Seen().empty(); }));
}

TEST_F(LifecycleStarted, DestroyLeavesTheListenersAloneAndTheNextClientDoesNotKnowThem) {
  auto listener = std::make_unique<PowerEvents>();
  MWP_DestroyBlueTooth();
  EXPECT_EQ(listener->m_nType, COM_LISTENER);
  ASSERT_EQ(MWP_CreateBlueTooth(), 1);
  EXPECT_EQ(Client::ms_pSingleton->GetListenerCount(), 0u);
  PowerEvents known;
  EmitPower(service, MWPBtType::BT_POWER_ON);
  EXPECT_TRUE(RunUntil([&] { return !known.Seen().empty(); }));
  EXPECT_THAT(listener->Seen(), IsEmpty());
}

}  // namespace
}  // namespace bttest
