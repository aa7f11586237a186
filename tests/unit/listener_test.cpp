// Listeners: how they register, what they log, and the order of the virtual slots of the client and of what
// it is made of. That of the listener interfaces is in contract/witness.txt.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>
#include <bluetooth/MWPBluetooth.h>

#include "libbluetooth/MWPBtClient.h"
#include "support/LogCapture.h"
#include "support/VirtualSlot.h"

namespace {

using Client = MWPSingleton<MWPBtClient>;

const bttest::LogRecord kBaseLine{"include/bluetooth/IMWPBtListenerBase", "IMWPBtListenerBase", 26, 20,
                                  "IMWPBtListenerBase constructor"};

/// The lines that constructing a listener of this type logs, once there is a client.
template <typename Listener>
std::vector<bttest::LogRecord> LinesOf() {
  Client::GetInstance();
  bttest::LogCapture log;
  Listener listener;
  return log.Records();
}

TEST(Listener, EachInterfaceHasItsTypeTag) {
  EXPECT_EQ(IMWPBtComListener().m_nType, 0);
  EXPECT_EQ(IMWPBtPhoneListener().m_nType, 1);
  EXPECT_EQ(IMWPBtMediaListener().m_nType, 2);
  EXPECT_EQ(IMWPBtPbapListener().m_nType, 3);
  EXPECT_EQ(IMWPBtMessageListener().m_nType, 4);
  EXPECT_EQ(IMWPBtSppListener().m_nType, 5);
  EXPECT_EQ(IMWPBtBleListener().m_nType, 6);
  EXPECT_EQ(IMWPBtListenerBase().m_nType, 7);
  EXPECT_EQ(Client::GetInstance()->m_nType, 7);
}

TEST(Listener, PhonePbapAndMessageListenersLogTheirTypeAfterTheBase) {
  const std::string source = "libbluetooth/MWPBtListenerInit";
  EXPECT_EQ(
      LinesOf<IMWPBtPhoneListener>(),
      (std::vector<bttest::LogRecord>{
          kBaseLine, {source, "IMWPBtPhoneListener", 41, 40, "IMWPBtPhoneListener m_nType = HFP_LISTENER"}}));
  EXPECT_EQ(LinesOf<IMWPBtMessageListener>(),
            (std::vector<bttest::LogRecord>{
                kBaseLine,
                {source, "IMWPBtMessageListener", 64, 40, "IMWPBtMessageListener m_nType = MAP_LISTENER"}}));
  EXPECT_EQ(
      LinesOf<IMWPBtPbapListener>(),
      (std::vector<bttest::LogRecord>{
          kBaseLine, {source, "IMWPBtPbapListener", 76, 40, "IMWPBtPbapListener m_nType = PBAP_LISTENER"}}));
}

TEST(Listener, TheOtherFourLogNothingOfTheirOwn) {
  const std::vector<bttest::LogRecord> baseOnly{kBaseLine};
  EXPECT_EQ(LinesOf<IMWPBtComListener>(), baseOnly);
  EXPECT_EQ(LinesOf<IMWPBtMediaListener>(), baseOnly);
  EXPECT_EQ(LinesOf<IMWPBtSppListener>(), baseOnly);
  EXPECT_EQ(LinesOf<IMWPBtBleListener>(), baseOnly);
}

TEST(Listener, DestructionLogsNothing) {
  auto listener = std::make_unique<IMWPBtPhoneListener>();
  bttest::LogCapture log;
  listener.reset();
  EXPECT_TRUE(log.Records().empty());
}

TEST(Listener, ConstructionBeforeCreateRegistersInAClientThatIsNotStarted) {
  ASSERT_EQ(Client::ms_pSingleton, nullptr);
  IMWPBtComListener listener;
  ASSERT_NE(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Client::ms_pSingleton->GetListeners(), std::set<IMWPBtListenerBase*>{&listener});
  EXPECT_EQ(MWPBtClient::m_bInitClient, 0);
  EXPECT_EQ(MWPBtClient::m_bServiceReady, 0);
}

TEST(Listener, DestructionTakesItOutOfTheRegistry) {
  auto listener = std::make_unique<IMWPBtComListener>();
  EXPECT_EQ(Client::GetInstance()->GetListenerCount(), 1u);
  listener.reset();
  EXPECT_EQ(Client::GetInstance()->GetListenerCount(), 0u);
}

template <typename Listener>
class EveryListener : public testing::Test {};

using Interfaces =
    testing::Types<IMWPBtComListener, IMWPBtPhoneListener, IMWPBtMediaListener, IMWPBtPbapListener,
                   IMWPBtMessageListener, IMWPBtSppListener, IMWPBtBleListener>;
TYPED_TEST_SUITE(EveryListener, Interfaces);

TYPED_TEST(EveryListener, LogsItsOwnLinesBeforeItMakesTheClient) {
  std::vector<bttest::LogRecord> expected = LinesOf<TypeParam>();
  expected.push_back(kBaseLine);  // the client's base
  MWP_DestroyBlueTooth();
  bttest::LogCapture log;
  TypeParam listener;
  std::vector<bttest::LogRecord> records = log.Records();
  ASSERT_GE(records.size(), expected.size());
  records.resize(expected.size());
  EXPECT_EQ(records, expected);
}

TYPED_TEST(EveryListener, MakesAnUnstartedClientWhenItIsDestroyedAfterTheLast) {
  auto listener = std::make_unique<TypeParam>();
  MWP_DestroyBlueTooth();
  ASSERT_EQ(Client::ms_pSingleton, nullptr);
  listener.reset();
  ASSERT_NE(Client::ms_pSingleton, nullptr);
  EXPECT_EQ(Client::ms_pSingleton->GetListenerCount(), 0u);
  EXPECT_EQ(MWPBtClient::m_bInitClient, 0);
  EXPECT_EQ(MWPBtClient::m_bServiceReady, 0);
}

TEST(Listener, DestructionRemovesNothingFromAClientThatDoesNotKnowIt) {
  auto listener = std::make_unique<IMWPBtComListener>();
  MWP_DestroyBlueTooth();
  IMWPBtPhoneListener other;
  MWPBtClient* const fresh = Client::ms_pSingleton;
  listener.reset();
  EXPECT_EQ(Client::ms_pSingleton, fresh);
  EXPECT_EQ(fresh->GetListeners(), std::set<IMWPBtListenerBase*>{&other});
}

using bttest::SlotOf;

/// Fails unless the methods have consecutive slots from first on.
template <typename... Methods>
void ExpectSlotsFrom(std::size_t first, Methods... methods) {
  const std::vector<std::size_t> slots{SlotOf(methods)...};
  for (std::size_t i = 0; i < slots.size(); ++i) {
    EXPECT_EQ(slots[i], first + i);
  }
}

constexpr std::size_t kAfterDestructors = 2;

TEST(SlotOrder, ApplicationManagersListener) {
  using I = IMWPAppListener;
  ExpectSlotsFrom(kAfterDestructors, &I::OnModuleStatusChanged, &I::OnSystemBootStageNotify,
                  &I::OnAndroidAutoAbortHandle, &I::OnAAConnectionTimeoutNotify, &I::OnReloadLogConfigNotify,
                  &I::OnResourceDataChangeNotify, &I::OnProcRebootNotify);
}

TEST(SlotOrder, Registry) {
  using Registry = IMWPListener<IMWPBtListenerBase>;
  const std::vector<std::size_t> slots{
      SlotOf(&Registry::AddListener),     SlotOf(&Registry::RemoveListener),
      SlotOf(&Registry::GetListeners),    SlotOf(&Registry::GetListenerCount),
      SlotOf(&Registry::LockListener),    SlotOf(&Registry::UnlockListener),
      SlotOf(&Registry::OnListenerAdded), SlotOf(&Registry::OnListenerRemoved)};
  EXPECT_EQ(slots, (std::vector<std::size_t>{2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(SlotOrder, Client) {
  using Service = IMWPService<IMWPBtListenerBase>;
  const std::vector<std::size_t> slots{
      SlotOf(&Service::InitInstance), SlotOf(&Service::ExitInstance),    SlotOf(&Service::InitListener),
      SlotOf(&Service::ExitListener), SlotOf(&Service::OnListenerAdded), SlotOf(&Service::OnListenerRemoved)};
  EXPECT_EQ(slots, (std::vector<std::size_t>{2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(SlotOf(&MWPBtClient::OnModuleStatusChanged), 8u);
}

TEST(Layout, EveryInterfacesPointerIsItsBasesPointer) {
  IMWPBtMediaListener listener;
  EXPECT_EQ(static_cast<void*>(static_cast<IMWPBtListenerBase*>(&listener)), static_cast<void*>(&listener));
}

}  // namespace
