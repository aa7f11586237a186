// Two applications, each a process of its own, with one service.

#include <gmock/gmock.h>

#include "support/ChildProcess.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

using testing::ElementsAre;

struct TwoClients : WithService {
  TwoClients() {
    for (ChildProcess* const client : {&first, &second}) {
      if (!client->WaitForOutput("ready\n")) {
        throw std::runtime_error("a client does not start: " + client->Errors());
      }
    }
  }

  ChildProcess first{{BTTEST_LISTENING_CLIENT}};
  ChildProcess second{{BTTEST_LISTENING_CLIENT}};
};

TEST_F(TwoClients, BothReceiveEveryEventInOrder) {
  const std::string address = "11:22:33:44:55:66";
  std::string expected = "power 0\nready\n";
  for (int i = 0; i < 100; ++i) {
    service.Emit("OnCallStatusChanged", g_variant_new("(iyi)", i, 2, 1));
    expected += "call " + std::to_string(i) + " 2 1\n";
    service.Emit("OnCurPositionChanged", g_variant_new("(ii)", i, 1000));
    expected += "position " + std::to_string(i) + " 1000\n";
  }
  service.Emit("OnConnectStatusChanged", g_variant_new("(syy)", address.c_str(), 1, 3));
  expected += "connection " + address + " 1 3\n";
  service.Emit(
      "OnSppReceiveBufferChanged",
      g_variant_new("(sv)", address.c_str(), g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, "hello", 5, 1)));
  expected += "data " + address + " hello\n";
  for (ChildProcess* const client : {&first, &second}) {
    EXPECT_TRUE(client->WaitForOutput("hello\n"));
    EXPECT_EQ(client->Output(), expected);
  }
}

TEST_F(TwoClients, TheRequestsOfBothReachTheService) {
  EXPECT_THAT(service.TakeCallTexts(), ElementsAre("GetPowerStatus()", "GetPowerStatus()"));
}

TEST_F(TwoClients, BothAttachTheSameSegments) {
  for (int id = SH_PAIRED_LIST; id <= SH_BT_PARAMETER; ++id) {
    EXPECT_EQ(FindSegment(static_cast<ShareMemID>(id))->attachments, 2u) << id;
  }
}

TEST_F(TwoClients, TheEndOfOneDoesNotConcernTheOther) {
  first.Kill();
  service.Emit("OnCurPositionChanged", g_variant_new("(ii)", 1, 1000));
  EXPECT_TRUE(second.WaitForOutput("position 1 1000\n"));
}

TEST_F(TwoClients, TheServicesEndIsSurvivedByBothAndItsReturnHeardOfByBoth) {
  service.Kill();
  Recorder next;
  // Each hears of the new service when its main loop gets to it, and of the signals from then on.
  const auto hasHeard = [](const ChildProcess& client) {
    return client.Output().find("position 2 1000\n") != std::string::npos;
  };
  EXPECT_TRUE(WaitUntil([&] {
    next.Emit("OnCurPositionChanged", g_variant_new("(ii)", 2, 1000));
    return hasHeard(first) && hasHeard(second);
  }));
}

}  // namespace
}  // namespace bttest
