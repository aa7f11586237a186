// A second client can make the service rewrite a segment while this one reads it. What is read then may be
// wrong, but the read ends, stays inside the segment and complains at most once.

#include <atomic>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "fuzz/ListPacker.h"
#include "fuzz/ListWorld.h"
#include "fuzz/Records.h"

namespace {

using bttest::Bytes;
using bttest::GuardedMemory;
using bttest::ListWorld;
using bttest::Pack;
using bttest::RandomRecords;

constexpr int kReads = 500;
constexpr int kWrites = 500;
constexpr std::chrono::seconds kBound{40};

/// Rewrites a segment without a pause for as long as it lives: whole lists of different lengths, and between
/// them lone bytes at any place, the NULs that end texts among them.
class RacingWriter {
 public:
  RacingWriter(GuardedMemory& segment, std::vector<Bytes> contents)
      : m_segment(segment), m_contents(std::move(contents)), m_thread([this] { Run(); }) {}

  ~RacingWriter() {
    m_stop = true;
    m_thread.join();
  }

  /// How often it has written everything.
  int Rounds() const { return m_rounds; }

 private:
  void Run() {
    RandomRecords random(1);
    while (!m_stop) {
      for (const Bytes& content : m_contents) {
        Write(0, content.data(), content.size());
        for (int i = 0; i < 100; ++i) {
          const auto byte = static_cast<unsigned char>(random.Below(256));
          Write(static_cast<std::size_t>(random.Below(static_cast<int>(content.size()))), &byte, 1);
        }
      }
      ++m_rounds;
    }
  }

  /// As another process writes: behind the back of the reader's compiler.
  void Write(std::size_t place, const unsigned char* bytes, std::size_t size) {
    volatile unsigned char* const target = m_segment.Begin() + place;
    for (std::size_t i = 0; i < size && place + i < m_segment.Size(); ++i) {
      target[i] = bytes[i];
    }
  }

  GuardedMemory& m_segment;
  const std::vector<Bytes> m_contents;
  std::atomic<bool> m_stop{false};
  std::atomic<int> m_rounds{0};
  std::thread m_thread;
};

/// Reads until reader and writer have had enough turns each.
template <typename Read>
void ReadDuringWrites(ListWorld& world, const RacingWriter& writer, Read read) {
#ifdef __SANITIZE_THREAD__
  GTEST_SKIP() << "the race is the subject of this test";
#endif
  const auto end = std::chrono::steady_clock::now() + kBound;
  for (int reads = 0; reads < kReads || writer.Rounds() < kWrites; ++reads) {
    world.TakeErrors();
    ASSERT_EQ(read(), 1);
    ASSERT_LE(world.TakeErrors(), 1);
    ASSERT_LT(std::chrono::steady_clock::now(), end) << reads << " reads, " << writer.Rounds() << " writes";
  }
}

TEST(RacingWriter, ContactsAreReadWithinTheirSegment) {
  ListWorld world;
  RandomRecords random(2);
  const RacingWriter writer(world.Segment(SH_CONTACT_LIST),
                            {Pack(random.Contacts(200)), Pack(random.Contacts(30))});
  std::list<MWPTypeContact> contacts;
  ReadDuringWrites(world, writer, [&] { return world.Adapter().GetContactList(contacts); });
}

TEST(RacingWriter, CallLogsAreReadWithinTheirSegment) {
  ListWorld world;
  RandomRecords random(2);
  const RacingWriter writer(world.Segment(SH_CALL_LOG_LIST),
                            {Pack(random.CallLogs(100)), Pack(random.CallLogs(7))});
  ReadDuringWrites(world, writer, [&] {
    std::list<MWPTypeCallLog> logs;
    return world.Adapter().GetCallLogList(CALL_LOG_ALL, logs);
  });
}

TEST(RacingWriter, CurrentCallsAreReadWithinTheirSegment) {
  ListWorld world;
  RandomRecords random(2);
  const RacingWriter writer(world.Segment(SH_CALL_INFO_LIST),
                            {Pack(random.CallInfo()), Pack(random.CallInfo())});
  MWPTypeCallInfo info;
  ReadDuringWrites(world, writer, [&] { return world.Adapter().GetCurrentCallInfo(info); });
}

}  // namespace
