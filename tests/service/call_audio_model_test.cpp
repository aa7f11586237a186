#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class CallAudioModelTest : public ModelTest {
 protected:
  void SetUp() override {
    PairBeforehand(kSmartphone);
    PairBeforehand(kOldPhone);
    ConnectDevice(kSmartphone, BT_PROFILE_HFP);
  }
  CallControl& Calls() { return Stack().Calls(); }
  Outside& FromOutside() { return Stack().FromOutside(); }
  std::vector<AudioStatus> Audio() const { return log.Values(&CallAudioChanged::status); }
};

TEST_F(CallAudioModelTest, TheSoundOfACallComesToTheHeadUnit) {
  Calls().Dial("112");
  Pass(world.delays.callAudio);
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED));
  EXPECT_THAT(log.Values(&CodecChanged::codec), ElementsAre(BT_CODEC_MSBC));
  Calls().HangUp();
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED, BT_AUDIO_DISCONNECTED));
}

TEST_F(CallAudioModelTest, ThePhonesOwnRingToneIsHeard) {
  FromOutside().Call(kSmartphone, "112");
  Pass(world.delays.callAudio);
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED));
}

TEST_F(CallAudioModelTest, ButNotIfTheHeadUnitHasItsOwn) {
  Stack().Adapter().SetCapability(BT_CAP_LOCAL_RING, 1);
  FromOutside().Call(kSmartphone, "112");
  Pass(1s);
  EXPECT_THAT(Audio(), IsEmpty());
  Calls().Accept();
  Pass(world.delays.callAudio);
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED));
}

TEST_F(CallAudioModelTest, ACallCanBePrivate) {
  Calls().Dial("112");
  Pass(world.delays.callAudio);
  log.Clear();
  EXPECT_TRUE(Calls().SetPrivate(true));
  EXPECT_TRUE(Calls().IsPrivate());
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_DISCONNECTED));
  log.Clear();
  EXPECT_TRUE(Calls().SetPrivate(false));
  Pass(world.delays.callAudio);
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED));
  EXPECT_EQ(log.Count<CodecChanged>(), 0U) << "still the same codec";
}

TEST_F(CallAudioModelTest, TheNextCallIsNotPrivate) {
  Calls().Dial("112");
  Calls().SetPrivate(true);
  Calls().HangUp();
  EXPECT_FALSE(Calls().IsPrivate());
  EXPECT_FALSE(Calls().SetPrivate(true)) << "without a call";
}

TEST_F(CallAudioModelTest, AnotherPhoneMayUseAnotherCodec) {
  Calls().Dial("112");
  Pass(world.delays.callAudio);
  Calls().HangUp();
  ConnectDevice(kOldPhone, BT_PROFILE_HFP);
  Calls().Dial("112");
  Pass(world.delays.callAudio);
  EXPECT_THAT(log.Values(&CodecChanged::codec), ElementsAre(BT_CODEC_CVSD));
}

TEST_F(CallAudioModelTest, VoiceRecognitionStartsAndStops) {
  Calls().StartVoiceRecognition();
  EXPECT_EQ(log.Count<VoiceRecognitionChanged>(), 0U);
  Pass(world.delays.voice + world.delays.callAudio);
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED));
  Calls().StopVoiceRecognition();
  EXPECT_THAT(log.Values(&VoiceRecognitionChanged::running), ElementsAre(true, false));
  EXPECT_THAT(Audio(), ElementsAre(BT_AUDIO_CONNECTING, BT_AUDIO_CONNECTED, BT_AUDIO_DISCONNECTED));
}

TEST_F(CallAudioModelTest, ACallEndsVoiceRecognition) {
  Calls().StartVoiceRecognition();
  Pass(world.delays.voice);
  FromOutside().Call(kSmartphone, "112");
  EXPECT_THAT(log.Values(&VoiceRecognitionChanged::running), ElementsAre(true, false));
  Calls().StartVoiceRecognition();
  Pass(1s);
  EXPECT_EQ(log.Count<VoiceRecognitionChanged>(), 2U) << "not during a call";
}

TEST_F(CallAudioModelTest, LosingThePhoneEndsVoiceRecognition) {
  Calls().StartVoiceRecognition();
  Pass(world.delays.voice);
  FromOutside().LoseLink(kSmartphone);
  EXPECT_THAT(log.Values(&VoiceRecognitionChanged::running), ElementsAre(true, false));
  Calls().StartVoiceRecognition();
  Pass(1s);
  EXPECT_EQ(log.Count<VoiceRecognitionChanged>(), 2U) << "not without a phone";
}

class PhoneStatusModelTest : public CallAudioModelTest {};

TEST_F(PhoneStatusModelTest, APhoneTellsOfItsNetworkWhenItConnects) {
  Stack().Devices().Reconnect(kSmartphone, BT_PROFILE_HFP);
  log.Clear();
  Pass(world.delays.page + world.delays.profile);
  EXPECT_THAT(log.Values(&OperatorChanged::name), ElementsAre("Nordnetz"));
  EXPECT_THAT(log.Values(&MobileServiceChanged::available), ElementsAre(true));
  EXPECT_THAT(log.Values(&RoamingChanged::roaming), ElementsAre(false));
  EXPECT_THAT(log.Values(&SignalChanged::bars), ElementsAre(4));
  EXPECT_THAT(log.Values(&BatteryChanged::bars), ElementsAre(5));
}

TEST_F(PhoneStatusModelTest, ChangesAtThePhoneAreReported) {
  EXPECT_TRUE(FromOutside().SetSignal(kSmartphone, 1));
  EXPECT_TRUE(FromOutside().SetBattery(kSmartphone, 2));
  EXPECT_TRUE(FromOutside().SetRoaming(kSmartphone, true));
  EXPECT_TRUE(FromOutside().SetOperator(kSmartphone, ""));
  EXPECT_THAT(log.Values(&SignalChanged::bars), ElementsAre(1));
  EXPECT_THAT(log.Values(&BatteryChanged::bars), ElementsAre(2));
  EXPECT_THAT(log.Values(&RoamingChanged::roaming), ElementsAre(true));
  EXPECT_THAT(log.Values(&OperatorChanged::name), ElementsAre(""));
  EXPECT_THAT(log.Values(&MobileServiceChanged::available), ElementsAre(false));
}

TEST_F(PhoneStatusModelTest, ThoseOfAPhoneThatIsNotInUseAreNot) {
  EXPECT_TRUE(FromOutside().SetBattery(kOldPhone, 1));
  EXPECT_EQ(log.Count<BatteryChanged>(), 0U);
  EXPECT_FALSE(FromOutside().SetBattery(kNobody, 1));
  EXPECT_FALSE(FromOutside().SetBattery(kSmartphone, 6));
  EXPECT_FALSE(FromOutside().SetSignal(kSmartphone, -1));
}

TEST_F(PhoneStatusModelTest, WithoutAPhoneThereIsNoNetwork) {
  FromOutside().LoseLink(kSmartphone);
  EXPECT_THAT(log.Values(&MobileServiceChanged::available), ElementsAre(false));
  EXPECT_THAT(log.Values(&SignalChanged::bars), ElementsAre(0));
}

}  // namespace
}  // namespace btservice
