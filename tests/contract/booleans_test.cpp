// What arrives at the service of an argument that means yes or no: its lowest byte decides.

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ipc/BtClientIpcAdapter.h"
#include "support/BusDaemon.h"
#include "support/Recorder.h"

namespace bttest {
namespace {

constexpr const char* kAddress = "a";

/// A request with one such argument, and what the call of it looks like around the argument.
struct Request {
  std::function<void(BtClientIpcAdapter&, int)> call;
  std::string before;
  std::string after;
};

class Booleans : public testing::Test {
 protected:
  Booleans() { EXPECT_TRUE(adapter.InitDBusConnect()); }

  /// Expects of each request that value arrives as this text.
  void ExpectArrival(const std::vector<Request>& requests, int value, const std::string& text) {
    recorder.TakeCalls();
    for (const Request& request : requests) {
      request.call(adapter, value);
      EXPECT_THAT(recorder.TakeCallTexts(), testing::ElementsAre(request.before + text + request.after))
          << value;
    }
  }

  BusDaemon bus;
  Recorder recorder;
  BtClientIpcAdapter adapter;
};

TEST_F(Booleans, ThatTravelAsSuchAreFalseWhenTheLowestByteIsZeroAsIn256) {
  using Adapter = BtClientIpcAdapter;
  const std::vector<Request> requests{
      {[](Adapter& a, int value) { a.SetScanAction(value); }, "SetScanAction(", ",)"},
      {[](Adapter& a, int value) { a.SetAutoConnect(value); }, "SetAutoConnect(", ",)"},
      {[](Adapter& a, int value) { a.DeletePairDevice(kAddress, value); }, "DeletePairDevice('a', ", ")"},
      {[](Adapter& a, int value) { a.SetWirelessEnable(kAddress, value); }, "SetWirelessEnable('a', ", ")"},
      {[](Adapter& a, int value) { a.EnableAudioDevice(value); }, "EnableAudioDevice(", ",)"},
      {[](Adapter& a, int value) { a.StopMusic(value); }, "StopMusic(", ",)"},
      {[](Adapter& a, int value) { a.RegGetPlayStatus(value, 100); }, "RegGetPlayStatus(", ", 100)"},
      {[](Adapter& a, int value) { a.RegGetMediaInfo(value, 100); }, "RegGetMediaInfo(", ", 100)"},
      {[](Adapter& a, int value) { a.SetAudioPrivacy(value); }, "SetAudioPrivacy(", ",)"},
      {[](Adapter& a, int value) { a.SetContactFavorite(7, value); }, "SetContactFavorite(7, ", ")"},
  };
  for (const int value : {1, 2, 255, 257, -1}) {
    ExpectArrival(requests, value, "true");
  }
  for (const int value : {0, 256, 512, -256}) {
    ExpectArrival(requests, value, "false");
  }
}

TEST_F(Booleans, ThatTravelAsAByteArriveAsTheLowestByteSoThat256IsZero) {
  using Adapter = BtClientIpcAdapter;
  const std::vector<Request> requests{
      {[](Adapter& a, int value) { a.SetPower(value); }, "SetPower(", ",)"},
      {[](Adapter& a, int value) { a.SetCapability(MWPBtType::BT_CAP_AUTO_CONNECT, value); },
       "SetCapability(byte 0x01, ", ")"},
      {[](Adapter& a, int value) { a.Connect(kAddress, MWPBtType::BT_PROFILE_HFP, value); },
       "Connect('a', byte 0x01, ", ")"},
      {[](Adapter& a, int value) { a.SetAndroidAutoStatus(value); }, "SetAndroidAutoStatus(", ",)"},
  };
  ExpectArrival(requests, 0, "byte 0x00");
  ExpectArrival(requests, 1, "byte 0x01");
  ExpectArrival(requests, 2, "byte 0x02");
  ExpectArrival(requests, 256, "byte 0x00");
  ExpectArrival(requests, 257, "byte 0x01");
  ExpectArrival(requests, -1, "byte 0xff");
}

}  // namespace
}  // namespace bttest
