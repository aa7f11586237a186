// The event that carries bytes.

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/events_fixture.h"

namespace bttest {
namespace {

constexpr int kBufferBytes = 4096;

/// Looks at the buffer itself, and how it goes on behind the received bytes.
class BufferListener : public IMWPBtSppListener {
 public:
  void OnSppReceiveBufferChanged(const std::string&, char* buffer, int received) override {
    ++calls;
    length = received;
    bytes.assign(buffer, buffer + received);
    // A buffer for more than it holds by default is as long as the bytes.
    restIsZero = received >= kBufferBytes ||
                 std::all_of(buffer + received, buffer + kBufferBytes, [](char byte) { return byte == 0; });
    std::fill(buffer, buffer + std::max(received, 1), 'x');  // it is the listener's to write to
  }
  int calls = 0;
  int length = -1;
  std::string bytes;
  bool restIsZero = false;
};

class SppBytes : public testing::Test {
 protected:
  SppBytes() { log.Clear(); }

  void Send(GVariant* value) {
    library.Signal("OnSppReceiveBufferChanged", g_variant_new("(sv)", "00:1A:7D:DA:71:13", value));
  }
  void SendBytes(const std::string& bytes) {
    Send(g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1));
  }

  LogCapture log;
  StartedLibrary library;
  std::optional<BufferListener> listener{std::in_place};
};

std::string Pattern(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) {
    bytes[i] = static_cast<char>(i * 7 + i / 256);
  }
  return bytes;
}

TEST_F(SppBytes, OfAnyNumberArriveWholeAndInABufferOfZeros) {
  for (const std::size_t size : {0, 1, 3, 255, 4095, 4096, 4097, 100000, 1000000}) {
    listener.emplace();
    SendBytes(Pattern(size));
    EXPECT_EQ(listener->calls, 1) << size;
    EXPECT_EQ(listener->length, static_cast<int>(size));
    EXPECT_TRUE(listener->bytes == Pattern(size)) << size;
    EXPECT_TRUE(listener->restIsZero) << size;
  }
  EXPECT_TRUE(log.OfLevel(100).empty());
}

TEST_F(SppBytes, MayBeZeros) {
  for (const std::size_t size : {1, 4096, 5000}) {
    SendBytes(std::string(size, '\0'));
    EXPECT_TRUE(listener->bytes == std::string(size, '\0')) << size;
  }
  SendBytes(std::string("a\0b\0", 4));
  EXPECT_EQ(listener->bytes, std::string("a\0b\0", 4));
}

TEST_F(SppBytes, OfNoNumberComeWithTheAddressOfABufferOfZeros) {
  SendBytes("first");
  SendBytes("");
  EXPECT_EQ(listener->calls, 2);
  EXPECT_EQ(listener->length, 0);
  EXPECT_TRUE(listener->restIsZero);
}

TEST_F(SppBytes, ReplacedByAnotherTypeAreDroppedWithOneErrorLine) {
  for (const char* const value : {"'text'", "[1, 2]", "uint32 7", "<b'bytes'>", "(byte 1, byte 2)",
                                  "{'key': <byte 1>}", "[true]", "@as []"}) {
    log.Clear();
    Send(g_variant_new_parsed(value));
    const std::vector<LogRecord> records = log.Records();
    ASSERT_EQ(records.size(), 1u) << value;
    EXPECT_EQ(records[0].file, "ipc/BtClientIpcAdapter");
    EXPECT_EQ(records[0].function, "CallBackOnSppReceiveBufferChanged");
    EXPECT_EQ(records[0].level, 100);
  }
  EXPECT_EQ(listener->calls, 0);
  SendBytes("the next one");
  EXPECT_EQ(listener->bytes, "the next one");
  EXPECT_TRUE(log.Complaints().empty());
}

}  // namespace
}  // namespace bttest
