// An hour on the road, run fast: eight applications, each a process of its own, a phone that calls, plays and
// gets lost, and a service that is killed and comes back. It needs simulated time, and looks into processes;
// what it shows of a restart is in tests/conformance too.

#include <algorithm>
#include <csignal>
#include <map>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "drive/BusWitness.h"
#include "drive/DriveClient.h"
#include "drive/ProcessUsage.h"
#include "protocol/Segments.h"
#include "support/MainLoop.h"
#include "support/Segments.h"
#include "support/TemporaryDirectory.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

constexpr int kClients = 8;
constexpr int kServices = 3;  ///< one after the other
constexpr int kRounds = 4;    ///< with each of them
constexpr int kRoundSeconds = 3600 / kServices / kRounds;
constexpr int kSpeed = 200;
constexpr const char* kPhone = "00:1A:7D:DA:71:13";
constexpr int kContacts = 200;
constexpr const char* kDownloaded = "OnPBDownloadStatus (byte 0x03, byte 0x06)";

#ifdef __SANITIZE_ADDRESS__
// What is freed is kept for a while there, so that the memory of a process says nothing.
constexpr bool kMemoryCounts = false;
#else
constexpr bool kMemoryCounts = true;
#endif
/// How much more a client may have in use after an hour, and the service of the machine's memory, without
/// anything being lost. A hundred bytes lost with each event would be a megabyte.
#ifdef BTTEST_UNDER_EMULATOR
// Nine tenths of the service's memory are the emulator's own there, and it takes more whenever it meets code
// for the first time.
constexpr long kKilobytesOfSlack = 1024;
#else
constexpr long kKilobytesOfSlack = 256;
#endif

class DriveTest : public testing::Test {
 protected:
  DriveTest() {
    for (int i = 0; i < kClients; ++i) {
      directories.push_back(std::make_unique<bttest::TemporaryDirectory>());
      clients.push_back(std::make_unique<DriveClient>(directories.back()->Path()));
    }
    for (const SegmentEntry& entry : kSegmentCatalogue) {
      segments.push_back(bttest::FindSegment(entry.id).value().identifier);
    }
  }

  OwnedVariant Control(const std::string& method, GVariant* arguments = nullptr) {
    return service.CallControl(method, arguments);
  }
  DriveClient& Client(int number) { return *clients[number % kClients]; }

  /// Does something that the service reports.
  template <typename Action>
  void Do(const char* signal, Action action) {
    service.ForgetSignals();
    action();
    EXPECT_TRUE(service.WaitFor(signal)) << signal;
  }
  /// Has the next client in turn request something that is accepted, and leads to a signal.
  void Request(const std::string& request, const char* signal) {
    Do(signal, [&] { EXPECT_EQ(Client(m_turn++).Ask(request), 1) << request; });
  }

  double Seconds() {
    gint64 milliseconds = 0;
    g_variant_get(Control("GetTime").get(), "(xd)", &milliseconds, nullptr);
    return static_cast<double>(milliseconds) / 1000;
  }
  void PassUntil(double seconds) {
    EXPECT_TRUE(bttest::RunUntil([&] {
      const std::chrono::duration<double> rest((seconds - Seconds()) / kSpeed);
      const auto end = std::chrono::steady_clock::now() + rest;
      bttest::RunUntil([&] { return std::chrono::steady_clock::now() >= end; });
      return Seconds() >= seconds;
    }));
  }

  /// Sends a signal of its own kind, and waits until everybody has got that far.
  std::string Mark() {
    const std::string name = "mark " + std::to_string(++m_marks);
    std::string text = "OnOperatorNameChanged('" + name + "')";
    GVariantBuilder values;
    g_variant_builder_init(&values, G_VARIANT_TYPE("av"));
    g_variant_builder_add(&values, "v", g_variant_new_string(name.c_str()));
    Control("EmitSignal", g_variant_new("(sav)", "OnOperatorNameChanged", &values));
    EXPECT_TRUE(bttest::RunUntil([&] {
      return !witness.Signals().empty() && Count(witness.Signals(), text) == 1 &&
             std::all_of(clients.begin(), clients.end(),
                         [&](const auto& client) { return client->HasSeen(text); });
    })) << name;
    return text;
  }
  static std::ptrdiff_t Count(const std::vector<std::string>& texts, const std::string& text) {
    return std::count(texts.begin(), texts.end(), text);
  }

  void Download() {
    Request("scan on", "OnScanedDeviceChanged");
    Request("download", kDownloaded);
    for (const auto& client : clients) {
      EXPECT_EQ(client->Ask("contacts"), kContacts);
    }
  }
  void ThreeCalls() {
    const auto call = [&](const char* number) { Control("Call", g_variant_new("(ss)", kPhone, number)); };
    Do("OnCurrentCallInfoChanged (1,)", [&] { call("+49170000001"); });
    Request("accept", "OnCurrentCallInfoChanged (1,)");
    Do("OnCurrentCallInfoChanged (2,)", [&] { call("+49170000002"); });
    Request("swap", "OnCurrentCallInfoChanged (2,)");
    Request("join", "OnCurrentCallInfoChanged (2,)");
    Do("OnCurrentCallInfoChanged (3,)", [&] { call("+49170000003"); });
    Request("swap", "OnCurrentCallInfoChanged (3,)");
    for (const auto& client : clients) {
      EXPECT_EQ(client->Ask("calls"), 3);  // also while the service writes the calls' times
    }
    PassUntil(Seconds() + 30);
    Do("OnCurrentCallInfoChanged (0,)", [&] { Control("HangUp", g_variant_new("(si)", kPhone, 0)); });
  }
  void MusicAndMore() {
    Request("play", "OnCurPositionChanged");
    Request("next", "OnAudioTrackChanged");
    Request("connect-serial " + std::string(kPhone), "OnSppConnectStatus");
    Request("serial " + std::string(kPhone), "OnSppReceiveBufferChanged");
    Do("OnMessageStatusNotify (byte 0x00, 'AB')",
       [&] { Control("SendMessage", g_variant_new("(ssss)", kPhone, "AB", "Ben", "Nearly there")); });
    Control("ChangeMessage", g_variant_new("(sss)", kPhone, "AB", "deleted"));
  }
  void LoseLink() {
    Do(kDownloaded, [&] { Control("LoseLink", g_variant_new("(s)", kPhone)); });
  }
  /// Every round is as long as the others, and ends with music.
  void Round() {
    const double begin = Seconds();
    Download();
    ThreeCalls();
    MusicAndMore();
    PassUntil(begin + kRoundSeconds / 2.0);
    LoseLink();
    Request("play", "OnCurPositionChanged");
    PassUntil(begin + kRoundSeconds);
    Mark();
  }

  std::vector<ProcessUsage> UsageOfClients() {
    std::vector<ProcessUsage> usages;
    for (const auto& client : clients) {
      usages.emplace_back(client->Process().Pid());
      // Not what its heap was when most was waiting in it: that is more whenever the machine is slow.
      usages.back().kilobytes = client->Ask("memory");
    }
    return usages;
  }
  static void ExpectNoGrowth(const ProcessUsage& before, const ProcessUsage& after,
                             const std::string& whose) {
    EXPECT_EQ(after.files, before.files) << whose;
    if (kMemoryCounts) {
      EXPECT_LE(after.kilobytes, before.kilobytes + kKilobytesOfSlack) << whose;
    }
  }

  std::vector<int> small =
      bttest::MakeDummySegments();  ///< the identifiers that are numbers of segments, too
  RunningService service{
      {"--speed", std::to_string(kSpeed), "--world", BTTEST_DRIVE_WORLD, "--remove-segments"}};
  BusWitness witness{service.Connection()};
  std::vector<std::unique_ptr<bttest::TemporaryDirectory>> directories;
  std::vector<std::unique_ptr<DriveClient>> clients;
  std::vector<int> segments;  ///< their identifiers

 private:
  int m_turn = 0;
  int m_marks = 0;
};

/// What lies between two marks.
std::vector<std::string> Between(const std::vector<std::string>& texts, const std::string& begin,
                                 const std::string& end) {
  const auto first = std::find(texts.begin(), texts.end(), begin);
  const auto last = std::find(first, texts.end(), end);
  return last == texts.end() ? std::vector<std::string>() : std::vector<std::string>(first, last);
}

/// Nothing if they are the same; else the first difference, since there are thousands.
std::string Difference(const std::vector<std::string>& sent, const std::vector<std::string>& heard) {
  const auto [one, other] = std::mismatch(sent.begin(), sent.end(), heard.begin(), heard.end());
  if (one == sent.end() && other == heard.end()) {
    return "";
  }
  return std::to_string(sent.size()) + " sent and " + std::to_string(heard.size()) + " heard; as number " +
         std::to_string(one - sent.begin()) + " " + (one != sent.end() ? *one : "nothing") +
         " was sent, and " + (other != heard.end() ? *other : "nothing") + " heard";
}

TEST_F(DriveTest, EveryEventArrivesAndNothingGrows) {
  const std::string begin = Mark();
  std::string end;
  double seconds = 0;
  std::vector<ProcessUsage> warmedUp;
  for (int i = 0; i < kServices; ++i) {
    if (i > 0) {
      service.Process().Kill();
      EXPECT_EQ(Client(i).Ask("power"), 0) << "there is no service to ask";
      service.ForgetSignals();
      service.Start();
    }
    ASSERT_TRUE(service.WaitFor(kDownloaded)) << "the phone is connected and its phone book read";
    // All have heard of the new service when they have heard it.
    Mark();
    Round();
    const ProcessUsage fresh(service.Process().Pid());
    if (i == 0) {
      warmedUp = UsageOfClients();
    }
    for (int round = 1; round < kRounds; ++round) {
      Round();
    }
    ExpectNoGrowth(fresh, ProcessUsage(service.Process().Pid()), "service " + std::to_string(i));
    end = Mark();
    seconds += Seconds();
  }
  EXPECT_GE(seconds, 3600);
  EXPECT_EQ(witness.Owners(), kServices - 1) << "beside the one that was there before";

  const std::vector<ProcessUsage> atTheEnd = UsageOfClients();
  for (int i = 0; i < kClients; ++i) {
    ExpectNoGrowth(warmedUp[i], atTheEnd[i], "client " + std::to_string(i));
  }

  // A device that a search finds reaches no listener: there is no such method. That is the one exception.
  std::vector<std::string> sent = Between(witness.Signals(), begin, end);
  const auto isHeardByNobody = [](const std::string& text) {
    return text.rfind("OnScanedDeviceChanged(", 0) == 0;
  };
  const auto heard = std::remove_if(sent.begin(), sent.end(), isHeardByNobody);
  EXPECT_NE(heard, sent.end()) << "there was something to find";
  sent.erase(heard, sent.end());
  EXPECT_GT(sent.size(), 3600U) << "a position each second";
  for (const auto& client : clients) {
    EXPECT_EQ(Difference(sent, Between(client->Events(), begin, end)), "");
  }

  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    EXPECT_FALSE(bttest::FindSegment(entry.id)) << entry.name;
  }
  for (const auto& client : clients) {
    client->Dismiss();
    EXPECT_EQ(client->Process().Wait(), 0) << client->Process().Errors();
  }
  for (const int identifier : segments) {
    EXPECT_FALSE(bttest::SegmentExists(identifier));
  }
}

}  // namespace
}  // namespace btservice
