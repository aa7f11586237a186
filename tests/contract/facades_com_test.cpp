// What is special about MWPBtCom: the check of addresses, the filter of SetPower, and GetCapability.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/MWPBtCom.h>

#include "contract/AskedLibrary.h"
#include "contract/DerivedRequests.h"

namespace bttest {
namespace {

using Texts = std::vector<std::string>;
constexpr const char* kSource = "libbluetooth/MWPBtCom";
constexpr const char* kAddress = "00:1a:2b:3c:4d:5e";

class Com : public AskedLibrary {
 protected:
  /// The lines of the facade, without their numbers.
  std::vector<LogRecord> ComLines() const {
    std::vector<LogRecord> lines = LinesOf(kSource);
    for (LogRecord& line : lines) {
      line.line = 0;
    }
    return lines;
  }

  MWPBtCom com;
};

TEST_F(Com, SendsAValidAddressAsItIsWritten) {
  for (const CheckedMethod& method : MethodsThatCheckTheirAddress()) {
    for (const std::string address : {kAddress, "00:1A:7d:DA:71:13", "FF:ff:FF:ff:FF:ff"}) {
      log.Clear();
      method.call(com, address);
      const Texts calls = library.recorder.TakeCallTexts();
      ASSERT_EQ(calls.size(), 1u) << method.name;
      EXPECT_EQ(calls[0].rfind(method.name + "('" + address + "'", 0), 0u) << calls[0];
      EXPECT_TRUE(log.OfLevel(100).empty()) << method.name;
    }
  }
}

TEST_F(Com, RefusesAnInvalidAddressWithAnErrorLineAndZero) {
  const std::string wrong[] = {"00:1a:2b:3c:4d:5e ", "00:1a:2b:3c:4d:5",  "00:1a:2b:3c:4d:5G", "",
                               "001A7DDA7113",       "00-1A-7D-DA-71-13", "%s%n%s%n%s%n%s%n%s"};
  for (const CheckedMethod& method : MethodsThatCheckTheirAddress()) {
    for (const std::string& address : wrong) {
      log.Clear();
      EXPECT_EQ(method.call(com, address), 0) << method.name;
      EXPECT_EQ(library.recorder.TakeCallTexts(), Texts()) << method.name;
      const std::vector<LogRecord> errors = log.OfLevel(100);
      ASSERT_EQ(errors.size(), 1u) << method.name;
      EXPECT_EQ(errors[0].file, kSource);
      EXPECT_EQ(errors[0].message, "No Active or address " + address + " is invalid!");
    }
  }
}

TEST_F(Com, ChecksTheAddressBeforeItMakesAClient) {
  Stop();
  MWPBtClient::m_bInitClient = 1;
  for (const CheckedMethod& method : MethodsThatCheckTheirAddress()) {
    method.call(com, "no address");
    EXPECT_EQ(TheClient(), nullptr) << method.name;
  }
  MWPBtClient::m_bInitClient = 0;
}

TEST_F(Com, DoesNotCheckOtherAddresses) {
  com.AnswerPair("1", "x", MWPBtType::BT_PAIR_REQUEST_JUST_WORKS);
  com.RejectPair("", MWPBtType::BT_PAIR_REQUEST_JUST_WORKS);
  com.DisableProfile("x");
  com.GetRemotePairDeviceName("x");
  com.MovePairDevicePosion("x", 1);
  EXPECT_EQ(library.recorder.TakeCallTexts(),
            (Texts{"AnswerPair('1', 'x', byte 0x04)", "RejectPair('', byte 0x04)", "DisableProfile('x',)",
                   "GetRemotePairDeviceName('x',)", "MovePairDevicePosion('x', 1)"}));
  EXPECT_TRUE(log.OfLevel(100).empty());
}

TEST_F(Com, ConnectLogsTheAttemptThenTheRefusal) {
  com.Connect("x", static_cast<MWPBtType::ProfileId>(300), -1);
  const std::vector<LogRecord> expected{{kSource, "Connect", 0, 40, "connect bt_profile = 300 ,bOnly = -1"},
                                        {kSource, "Connect", 0, 100, "No Active or address x is invalid!"}};
  EXPECT_EQ(ComLines(), expected);

  Stop();
  com.Connect("x", static_cast<MWPBtType::ProfileId>(300), -1);
  EXPECT_EQ(ComLines(), expected);
}

TEST_F(Com, ConnectLogsTheAttemptAndThatItGoesOnBeforeItAsksTheService) {
  library.recorder.FailNext("Connect");
  com.Connect(kAddress, MWPBtType::BT_PROFILE_A2DP, 1);
  const std::vector<LogRecord> records = log.Records();
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].message, "connect bt_profile = 2 ,bOnly = 1");
  EXPECT_EQ(records[1].message, "MWPBtCom::Connect bt_profile = 2");
  EXPECT_EQ(records[2].level, 100);
}

TEST_F(Com, SetPowerIsOnlySentWhenItChangesSomething) {
  struct Row {
    int status;
    Texts on;
    Texts off;
  };
  const Texts asked{"GetPowerStatus()"};
  const Texts switchedOn{"GetPowerStatus()", "SetPower(byte 0x01,)"};
  const Texts switchedOff{"GetPowerStatus()", "SetPower(byte 0x00,)"};
  const Row rows[] = {
      {MWPBtType::BT_POWER_OFF, switchedOn, asked},
      {MWPBtType::BT_POWER_ON, asked, switchedOff},
      {MWPBtType::BT_POWER_TURNING_OFF, switchedOn, asked},
      {MWPBtType::BT_POWER_TURNING_ON, asked, switchedOff},
      {4, switchedOn, switchedOff},
      {255, switchedOn, switchedOff},
  };
  SetReply("SetPower", "(77,)");
  for (const Row& row : rows) {
    SetReply("GetPowerStatus", "(" + std::to_string(row.status) + ",)");
    EXPECT_EQ(com.SetPower(1), row.on == asked ? 0 : 77) << row.status;
    EXPECT_EQ(library.recorder.TakeCallTexts(), row.on) << row.status;
    EXPECT_EQ(com.SetPower(0), row.off == asked ? 0 : 77) << row.status;
    EXPECT_EQ(library.recorder.TakeCallTexts(), row.off) << row.status;
  }
}

TEST_F(Com, SetPowerTakesEveryOtherValueForOn) {
  SetReply("GetPowerStatus", "(0,)");
  com.SetPower(2);
  com.SetPower(-1);
  EXPECT_EQ(library.recorder.TakeCallTexts(),
            (Texts{"GetPowerStatus()", "SetPower(byte 0x02,)", "GetPowerStatus()", "SetPower(byte 0xff,)"}));
  SetReply("GetPowerStatus", "(1,)");
  EXPECT_EQ(com.SetPower(2), 0);
  EXPECT_EQ(library.recorder.TakeCallTexts(), (Texts{"GetPowerStatus()"}));
}

TEST_F(Com, SetPowerLogsWhatIsAskedForAndTheStatusBeforeItDecides) {
  SetReply("GetPowerStatus", "(3,)");
  com.SetPower(1);
  com.SetPower(0);
  EXPECT_EQ(ComLines(), (std::vector<LogRecord>{
                            {kSource, "SetPower", 0, 40, "MWPBtCom::SetPower bPower = 1, status = 3 ."},
                            {kSource, "SetPower", 0, 40, "MWPBtCom::SetPower bPower = 0, status = 3 ."}}));
}

TEST_F(Com, SetPowerAnswersZeroAndLogsNothingWhileNotStarted) {
  Stop();
  EXPECT_EQ(com.SetPower(1), 0);
  EXPECT_EQ(library.recorder.TakeCallTexts(), Texts());
  EXPECT_EQ(log.Records(), std::vector<LogRecord>());
  EXPECT_EQ(TheClient(), nullptr);
}

TEST_F(Com, GetCapabilityReadsSharedMemoryAndAsksNobody) {
  EXPECT_EQ(com.GetCapability(MWPBtType::BT_CAP_PARAMETER_LOADED), 1);
  EXPECT_EQ(com.GetCapability(MWPBtType::BT_CAP_RESERVED8), 0);
  EXPECT_EQ(library.recorder.TakeCallTexts(), Texts());
  EXPECT_EQ(ComLines(), (std::vector<LogRecord>(2, {kSource, "GetCapability", 0, 40, "GetCapability()"})));
}

TEST(ComBeforeStart, GetCapabilityMakesAClientThatIsNotStartedAndAnswersZero) {
  LogCapture log;
  EXPECT_EQ(MWPBtCom().GetCapability(MWPBtType::BT_CAP_PARAMETER_LOADED), 0);
  EXPECT_NE(TheClient(), nullptr);
  EXPECT_EQ(MWPBtClient::m_bInitClient, 0);
  ASSERT_FALSE(log.Records().empty());
  const LogRecord first = log.Records()[0];
  EXPECT_EQ(first.file, kSource);
  EXPECT_EQ(first.function, "GetCapability");
  EXPECT_EQ(first.level, 40);
  EXPECT_EQ(first.message, "GetCapability()");
}

}  // namespace
}  // namespace bttest
