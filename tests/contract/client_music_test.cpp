// PlayMusic: three of its commands are for the audio source manager, the others for the service.

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <mwp/MWPStandIn.h>

#include "contract/AskedLibrary.h"

namespace bttest {
namespace {

using Texts = std::vector<std::string>;
using MWPStandIn::SourceCall;

/// Notes the calls of the audio source manager while it lives.
class SourceCalls {
 public:
  SourceCalls() {
    MWPStandIn::ObserveSourceCalls([this](const SourceCall& call) {
      const char* const kinds[] = {"Request", "ActiveSourceConfirm", "DeactiveSourceConfirm"};
      all.push_back(std::string(kinds[call.kind]) + " " + std::to_string(call.source) + " " +
                    std::to_string(call.argument));
      if (onCall) {
        onCall();
      }
    });
  }
  ~SourceCalls() { MWPStandIn::ObserveSourceCalls({}); }

  Texts all;
  std::function<void()> onCall;
};

class PlayMusic : public AskedLibrary {
 protected:
  MWPBtClient& Client() { return *MWPSingleton<MWPBtClient>::GetInstance(); }
  SourceCalls source;
};

TEST_F(PlayMusic, MinusOneRequestsTheSourceAndAsksNobodyElse) {
  for (const bool isReady : {true, false}) {
    source.all.clear();
    EXPECT_EQ(Client().PlayMusic(-1, 77), 1);
    EXPECT_EQ(source.all, (Texts{"Request 9 0"})) << isReady;
    EXPECT_EQ(library.recorder.TakeCallTexts(), Texts());
    Stop();
  }
}

TEST_F(PlayMusic, ThreeConfirmsTheSourceAndThenEnablesTheAudioDeviceWhetherReadyOrNot) {
  Texts sentBefore;
  source.onCall = [&] { sentBefore = library.recorder.TakeCallTexts(); };
  for (const bool isReady : {true, false}) {
    source.all.clear();
    EXPECT_EQ(Client().PlayMusic(3, -5), 1);
    EXPECT_EQ(source.all, (Texts{"ActiveSourceConfirm 9 -5"})) << isReady;
    EXPECT_EQ(sentBefore, Texts()) << isReady;
    EXPECT_EQ(library.recorder.TakeCallTexts(), (Texts{"EnableAudioDevice(true,)"})) << isReady;
    Stop();
  }
}

TEST_F(PlayMusic, ThreeAnswersOneWhenTheAudioDeviceCannotBeEnabled) {
  library.recorder.FailNext("EnableAudioDevice");
  EXPECT_EQ(Client().PlayMusic(3, 0), 1);
  EXPECT_EQ(log.OfLevel(100).size(), 1u);
}

TEST_F(PlayMusic, FourConfirmsTheLossOfTheSourceAndAsksNobodyElse) {
  for (const bool isReady : {true, false}) {
    source.all.clear();
    EXPECT_EQ(Client().PlayMusic(4, 123), 1);
    EXPECT_EQ(source.all, (Texts{"DeactiveSourceConfirm 9 123"})) << isReady;
    EXPECT_EQ(library.recorder.TakeCallTexts(), Texts());
    Stop();
  }
}

TEST_F(PlayMusic, AnyOtherCommandIsTheServicesAndTheConfirmationIsDropped) {
  for (const int command :
       {0, 1, 2, 5, 9, -2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(Client().PlayMusic(command, 77), 1);
    EXPECT_EQ(library.recorder.TakeCallTexts(), (Texts{"PlayMusic(" + std::to_string(command) + ",)"}));
  }
  Stop();
  for (const int command : {0, 1, 2, 5, 9, -2}) {
    EXPECT_EQ(Client().PlayMusic(command, 77), 0);
  }
  EXPECT_EQ(library.recorder.TakeCallTexts(), Texts());
  EXPECT_EQ(source.all, Texts());
}

TEST_F(PlayMusic, LogsFirstWhateverTheCommand) {
  for (const int command : {-1, 0, 3, 4, 5}) {
    log.Clear();
    Client().PlayMusic(command, 0);
    EXPECT_EQ(LinesOf("libbluetooth/MWPBtClient"),
              (std::vector<LogRecord>{
                  {"libbluetooth/MWPBtClient", "PlayMusic", 456, 20, "MWPBtClient::PlayMusic"}}));
    ASSERT_FALSE(log.Records().empty());
    EXPECT_EQ(log.Records()[0].line, 456);
  }
}

TEST_F(PlayMusic, IsTheOnlyOneOfItsKindThatCallsTheSourceManager) {
  Client().StopMusic(1);
  Client().EnableAudioDevice(1);
  EXPECT_EQ(source.all, Texts());
}

TEST(PlayMusicBeforeCreate, MinusOneRequestsTheSourceAndAnswersOne) {
  SourceCalls source;
  EXPECT_EQ(MWPSingleton<MWPBtClient>::GetInstance()->PlayMusic(-1, 0), 1);
  EXPECT_EQ(source.all, (Texts{"Request 9 0"}));
}

TEST(PlayMusicBeforeCreate, ThreeConfirmsTheSourceAndFailsToEnableTheAudioDevice) {
  LogCapture log;
  SourceCalls source;
  MWPBtClient& client = *MWPSingleton<MWPBtClient>::GetInstance();
  log.Clear();
  EXPECT_EQ(client.PlayMusic(3, 1), 1);
  EXPECT_EQ(source.all, (Texts{"ActiveSourceConfirm 9 1"}));
  const std::vector<LogRecord> errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].function, "EnableAudioDevice");
}

}  // namespace
}  // namespace bttest
