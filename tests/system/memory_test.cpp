// Ten thousand successful requests, and as many of each sort of failed ones, leave the memory in use and the
// open files as they were: a thousand of each of ten kinds.

#include <cstring>
#include <filesystem>
#include <functional>
#include <iterator>
#include <list>
#include <string>
#include <vector>

#include <malloc.h>

#include "ipc/BtClientIpcAdapter.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// Their memory says nothing about the library's; LeakSanitizer looks at the fewer calls that are made then.
constexpr bool kMeasures = false;
constexpr int kCallsOfAKind = 200;
#else
constexpr bool kMeasures = true;
constexpr int kCallsOfAKind = 1000;
#endif
constexpr int kWarmUpCalls = 500;

/// Leaking the smallest block that malloc hands out, 32 bytes on a 64-bit machine, in every call of a kind
/// would add 31 KiB. What GLib still holds of the last call, and what threads keep to use again, is less.
constexpr long kTolerance = 16L * 1024;

constexpr const char* kAddress = "11:22:33:44:55:66";

using Adapter = BtClientIpcAdapter;

/// Requests of a kind, by what has to be released when they are answered, or not.
struct Kind {
  const char* method;  ///< of the service
  std::function<void(Adapter&)> call;
};

using Kinds = std::vector<Kind>;

Kinds WithNumbers() {
  return {{"SetPower", [](Adapter& adapter) { adapter.SetPower(1); }},
          {"EnableProfile", [](Adapter& adapter) { adapter.EnableProfile(); }}};
}

Kinds WithTexts() {
  return {{"GetRemotePairDeviceName", [](Adapter& adapter) { adapter.GetRemotePairDeviceName(kAddress); }},
          {"GetAttribute", [](Adapter& adapter) {
             std::string value;
             adapter.GetAttribute(MWPBtType::BT_ATTR_LOCAL_NAME, value);
           }}};
}

Kinds WithRecords() {
  return {
      {"GetPairDeviceInfoByAddress", [](Adapter& adapter) { adapter.GetPairDeviceInfoByAddress(kAddress); }},
      {"GetMediaInfo", [](Adapter& adapter) {
         MWPTypeMediaInfo info;
         adapter.GetMediaInfo(info);
       }}};
}

Kinds WithVariants() {
  return {{"SppSendBuffer",
           [](Adapter& adapter) {
             char buffer[] = "some data";
             adapter.SppSendBuffer(kAddress, buffer, sizeof buffer);
           }},
          {"GetSupportPlayMode", [](Adapter& adapter) {
             std::vector<MWPTypePlayMode> modes;
             adapter.GetSupportPlayMode(modes);
           }}};
}

Kinds WithLists() {
  return {{"GetContactList",
           [](Adapter& adapter) {
             std::list<MWPTypeContact> contacts;
             adapter.GetContactList(contacts);
           }},
          {"GetCallLogList", [](Adapter& adapter) {
             std::list<MWPTypeCallLog> logs;
             adapter.GetCallLogList(CALL_LOG_ALL, logs);
           }}};
}

Kinds All() {
  Kinds all;
  for (const Kinds& kinds : {WithNumbers(), WithTexts(), WithRecords(), WithVariants(), WithLists()}) {
    all.insert(all.end(), kinds.begin(), kinds.end());
  }
  return all;
}

/// What malloc has handed out and not got back.
long BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<long>(info.uordblks + info.hblkhd);
}

long OpenFiles() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

void Repeat(int count, const Kind& kind, BtClientIpcAdapter& adapter) {
  for (int i = 0; i < count; ++i) {
    kind.call(adapter);
  }
}

/// Makes the calls of these kinds and expects that nothing grows.
void ExpectNoGrowth(const Kinds& kinds) {
  Adapter adapter;
  for (const Kind& kind : kinds) {
    Repeat(kWarmUpCalls, kind, adapter);
    const long memory = BytesInUse();
    const long files = OpenFiles();
    Repeat(kCallsOfAKind, kind, adapter);
    if (kMeasures) {
      EXPECT_LT(BytesInUse() - memory, kTolerance) << "bytes more after " << kind.method;
    }
    // GLib's own thread may be a little late in closing the last call's.
    EXPECT_TRUE(WaitUntil([&] { return OpenFiles() <= files; }))
        << OpenFiles() - files << " files more after " << kind.method;
  }
}

/// Keeps what is logged and printed from filling the terminal and, unlike LogCapture, the memory.
void BeQuiet() {
  static bool isQuiet = false;
  if (isQuiet) {
    return;  // GLib takes a log writer only once
  }
  isQuiet = true;
  g_set_print_handler([](const gchar*) {});
  g_log_set_writer_func(
      [](GLogLevelFlags, const GLogField*, gsize, gpointer) { return G_LOG_WRITER_HANDLED; }, nullptr,
      nullptr);
}

constexpr const char* kLongText = "a text that is longer than a string's own room";

/// The bytes of a segment with ten records: each has so many bytes of integers before its text, and more
/// after.
std::vector<unsigned char> TenRecords(std::size_t before, std::size_t after) {
  std::vector<unsigned char> bytes{10, 0, 0, 0};
  for (int i = 0; i < 10; ++i) {
    bytes.insert(bytes.end(), before, 1);
    bytes.insert(bytes.end(), kLongText, kLongText + std::strlen(kLongText) + 1);
    bytes.insert(bytes.end(), after, 0);
  }
  return bytes;
}

struct MemoryOfSuccesses : Started {
  MemoryOfSuccesses() {
    BeQuiet();
    service.SetReply("GetRemotePairDeviceName", g_variant_new("(s)", kLongText));
    service.SetReply("GetAttribute", g_variant_new("(sy)", kLongText, 1));
    service.SetReply("GetPairDeviceInfoByAddress",
                     g_variant_new("(ssyyyy)", kLongText, kAddress, 1, 1, 1, 1));
    service.SetReply("GetMediaInfo", g_variant_new("(sssssssb)", kLongText, kLongText, kLongText, "1", "12",
                                                   kLongText, "180000", TRUE));
    service.SetReply("GetSupportPlayMode", g_variant_new_parsed("([(byte 1, byte 2), (3, 4)], true)"));
    // A contact is an id, two texts and the number of its numbers; a call log is three integers and five
    // texts.
    WriteSegment(SH_CONTACT_LIST, 0, TenRecords(4, 1 + 4));
    WriteSegment(SH_CALL_LOG_LIST, 0, TenRecords(12, 4));
  }
};

TEST_F(MemoryOfSuccesses, StaysWithNumbers) { ExpectNoGrowth(WithNumbers()); }
TEST_F(MemoryOfSuccesses, StaysWithTexts) { ExpectNoGrowth(WithTexts()); }
TEST_F(MemoryOfSuccesses, StaysWithRecords) { ExpectNoGrowth(WithRecords()); }
TEST_F(MemoryOfSuccesses, StaysWithVariants) { ExpectNoGrowth(WithVariants()); }
TEST_F(MemoryOfSuccesses, StaysWithLists) {
  std::list<MWPTypeContact> contacts;
  std::list<MWPTypeCallLog> logs;
  Adapter adapter;
  adapter.GetContactList(contacts);
  adapter.GetCallLogList(CALL_LOG_ALL, logs);
  ASSERT_EQ(contacts.size() + logs.size(), 20u);
  ExpectNoGrowth(WithLists());
}

struct MemoryOfRefusals : Started {
  MemoryOfRefusals() {
    BeQuiet();
    for (const Kind& kind : All()) {
      service.FailNext(kind.method, kWarmUpCalls + kCallsOfAKind);
    }
  }
};

TEST_F(MemoryOfRefusals, StaysWithNumbers) { ExpectNoGrowth(WithNumbers()); }
TEST_F(MemoryOfRefusals, StaysWithTexts) { ExpectNoGrowth(WithTexts()); }
TEST_F(MemoryOfRefusals, StaysWithRecords) { ExpectNoGrowth(WithRecords()); }
TEST_F(MemoryOfRefusals, StaysWithVariants) { ExpectNoGrowth(WithVariants()); }
TEST_F(MemoryOfRefusals, StaysWithLists) { ExpectNoGrowth(WithLists()); }

struct MemoryOfFailures : Started {
  MemoryOfFailures() { BeQuiet(); }
};

TEST_F(MemoryOfFailures, StaysOnALostBus) {
  bus.Stop();
  ASSERT_TRUE(WaitUntil([] {
    return g_dbus_connection_is_closed(g_dbus_proxy_get_connection(G_DBUS_PROXY(g_BtProxy))) != FALSE;
  }));
  ExpectNoGrowth(All());
}

TEST_F(MemoryOfFailures, StaysWithTextThatCannotTravel) {
  ExpectNoGrowth({{"DialCall", [](Adapter& adapter) { adapter.DialCall("\xff"); }}});
}

TEST(MemoryWithoutConnection, StaysWithAllKinds) {
  BeQuiet();
  ExpectNoGrowth(All());
}

}  // namespace
}  // namespace bttest
