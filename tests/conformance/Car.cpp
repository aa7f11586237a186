#include "tests/conformance/Car.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sstream>

#include "support/LogCapture.h"
#include "support/MainLoop.h"

namespace conformance {

using bttest::ValueText;

namespace {

std::vector<std::string> ServiceCommand() {
  if (const char* const command = std::getenv("BTCONFORMANCE_SERVICE")) {
    std::istringstream words(command);
    return {std::istream_iterator<std::string>(words), {}};
  }
#ifdef BTCONFORMANCE_WORLD
  return {"/app/bin/btservice", "--no-state", "--speed", "20", "--world", BTCONFORMANCE_WORLD};
#else
  return {};  // the simulation is not built
#endif
}

}  // namespace

bool Car::HasService() { return !ServiceCommand().empty(); }

Car::Car() {
  if (!HasService()) {
    return;
  }
  StartService();
  StartApplication();
}

Car::~Car() { EndApplication(); }

void Car::StartApplication() {
  m_listeners = std::make_unique<bttest::ListenerOfEachKind>(m_events);
  const bttest::LogCapture quiet;  // a start fails until the service is on the bus
  EXPECT_TRUE(Eventually([] { return MWP_CreateBlueTooth() != 0; })) << m_service->Errors();
}

void Car::EndApplication() {
  m_listeners.reset();
  MWP_DestroyBlueTooth();
  m_events.all.clear();
}

void Car::StartService() { m_service = std::make_unique<bttest::ChildProcess>(ServiceCommand()); }

int Car::EndService() { return EndInGoodOrder(*m_service).value_or(-1); }

void Car::KillService() { m_service->Kill(); }

void Car::ConnectPhone() {
  com.SetPower(1);
  ASSERT_TRUE(Eventually([&] { return com.GetPowerStatus() == BT_POWER_ON; }));
  if (com.GetRemotePairDeviceName(kPhone).empty()) {
    PairPhone();
  }
  const auto isConnected = [](const MWPTypeConnectionState& state) {
    return state.status == BT_CONN_CONNECTED && state.address == kPhone;
  };
  ASSERT_TRUE(Eventually([&] {
    const bool all =
        isConnected(calls.GetPhoneConnectionState()) && isConnected(music.GetMediaConnectionState());
    if (!all) {
      com.Connect(kPhone, BT_PROFILE_HFP_A2DP, 0);
    }
    return all;
  }));
  // A download that began by itself may have completed before this application listened. Then another one is
  // started, which is refused as long as one runs.
  const auto hasEnded = [&] {
    const std::vector<std::string>* const last = LastOf("OnPBDownloadStatus");
    return last != nullptr &&
           *last == std::vector<std::string>{ValueText::Of(BT_PBAP_COMPLETED), ValueText::Of(BT_PBAP_ALL)};
  };
  ASSERT_TRUE(Eventually([&] { return hasEnded() || book.StartPhoneBookDownload(BT_PBAP_ALL) != 0; }));
  bttest::RunPending();  // so that the last status is not from before the download that was started
  ASSERT_TRUE(Eventually(hasEnded));
}

void Car::PairPhone() {
  Phone phone;
  Forget();  // what an earlier pairing asked for
  ASSERT_TRUE(Eventually([&] { return com.Pair(kPhone, "") != 0; }));
  ASSERT_TRUE(Hears("OnAnswerPairRequest", {ValueText::Of(std::string(kPhone))}));
  if (phone.Can("AcceptPairing")) {  // else its owner accepts, or it does by itself
    phone.Do("AcceptPairing", kPhone);
  }
  com.AnswerPair("", kPhone, AskedState());
  ASSERT_TRUE(Hears("OnPairStatusChanged", {ValueText::Of(BT_PAIR_PAIRED)}));
}

PairRequestState Car::AskedState() const {
  const std::vector<std::string>* const asked = LastOf("OnAnswerPairRequest");
  if (asked == nullptr) {
    ADD_FAILURE() << "no pairing has asked for anything";
    return BT_PAIR_REQUEST_CONFIRMATION;
  }
  return static_cast<PairRequestState>(std::stoi(asked->back()));
}

void Car::Forget() {
  bttest::RunPending();
  m_events.all.clear();
}

bool Car::Hears(const std::string& event, const std::vector<std::string>& values) {
  return Eventually([&] { return HasHeard(event, values); });
}

bool Car::HasHeard(const std::string& event, const std::vector<std::string>& values) const {
  return std::any_of(m_events.all.begin(), m_events.all.end(), [&](const bttest::Reception& one) {
    return one.event == event && one.values.size() >= values.size() &&
           std::equal(values.begin(), values.end(), one.values.begin());
  });
}

const std::vector<std::string>* Car::LastOf(const std::string& event) const {
  const auto last = std::find_if(m_events.all.rbegin(), m_events.all.rend(),
                                 [&](const bttest::Reception& one) { return one.event == event; });
  return last != m_events.all.rend() ? &last->values : nullptr;
}

}  // namespace conformance
