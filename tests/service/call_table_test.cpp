// The table of calls, which applications read at any time and without a lock.

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>
#include <map>
#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/shm.h>
#include <ucontext.h>
#include <unistd.h>

#include "ipc/ShareMemory/SegmentReader.h"
#include "service/frontend/segments/CallTableSegment.h"
#include "support/Segments.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

constexpr const char* kPhone = "00:1A:7D:DA:71:13";
constexpr std::size_t kTableSize = 2048;

CallInfo MakeCall(int id, int seconds) {
  CallInfo call;
  call.id = id;
  call.status = BT_CALL_ACTIVE;
  call.seconds = seconds;
  call.number = "11" + std::to_string(id);
  call.deviceAddress = kPhone;
  return call;
}

/// Memory in which the number of calls ends a page, and the rest begins one that can be watched: the first
/// store there is caught, and what the number of calls was by then is noted.
class WatchedTable {
 public:
  WatchedTable() : m_pageSize(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
    m_pages = static_cast<std::uint8_t*>(
        mmap(nullptr, 2 * m_pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    s_watched = this;
    struct sigaction action = {};
    action.sa_flags = SA_SIGINFO;
    action.sa_sigaction = &OnFault;
    sigaction(SIGSEGV, &action, &m_beforeFault);
    action.sa_sigaction = &OnStep;
    sigaction(SIGTRAP, &action, &m_beforeStep);
  }
  ~WatchedTable() {
    sigaction(SIGSEGV, &m_beforeFault, nullptr);
    sigaction(SIGTRAP, &m_beforeStep, nullptr);
    munmap(m_pages, 2 * m_pageSize);
  }
  WatchedTable(const WatchedTable&) = delete;
  WatchedTable& operator=(const WatchedTable&) = delete;

  std::uint8_t* Memory() const { return m_pages + m_pageSize - sizeof(std::int32_t); }
  std::int32_t Word(std::size_t offset) const {
    std::int32_t word = 0;
    std::memcpy(&word, Memory() + offset, sizeof(word));
    return word;
  }
  std::int32_t Count() const { return Word(0); }
  void WatchRecords() { mprotect(m_pages + m_pageSize, m_pageSize, PROT_READ); }
  void WatchCount() { mprotect(m_pages, m_pageSize, PROT_READ); }
  /// Watches the records, and what the word at offset becomes by the one instruction that writes first.
  void WatchFirstStore(std::size_t offset) {
    m_steppedOffset = offset;
    WatchRecords();
  }
  /// The number of calls when the watched page was written to; nothing if it was not.
  std::optional<std::int32_t> CountAtWrite() const { return m_countAtWrite; }
  /// The watched word after the first store; nothing if there was none.
  std::optional<std::int32_t> WordAfterFirstStore() const { return m_wordAfterStore; }

 private:
  static void OnFault(int, siginfo_t* info, void* context) {
    auto* const address = static_cast<std::uint8_t*>(info->si_addr);
    if (address < s_watched->m_pages || address >= s_watched->m_pages + 2 * s_watched->m_pageSize) {
      signal(SIGSEGV, SIG_DFL);  // a fault of something else: it ends the test when it happens again
      return;
    }
    s_watched->m_countAtWrite = s_watched->Count();
    mprotect(s_watched->m_pages, 2 * s_watched->m_pageSize, PROT_READ | PROT_WRITE);
    if (s_watched->m_steppedOffset) {
      StopAfterOneInstruction(context, true);
    }
  }

  static void OnStep(int, siginfo_t*, void* context) {
    StopAfterOneInstruction(context, false);
    s_watched->m_wordAfterStore = s_watched->Word(*s_watched->m_steppedOffset);
  }

  static void StopAfterOneInstruction([[maybe_unused]] void* context, [[maybe_unused]] bool stops) {
#ifdef __x86_64__
    constexpr greg_t kTrapFlag = 0x100;
    greg_t& flags = static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_EFL];
    flags = stops ? flags | kTrapFlag : flags & ~kTrapFlag;
#endif
  }

  static WatchedTable* s_watched;
  std::size_t m_pageSize;
  std::uint8_t* m_pages;
  struct sigaction m_beforeFault = {};
  struct sigaction m_beforeStep = {};
  std::optional<std::int32_t> m_countAtWrite;
  std::optional<std::size_t> m_steppedOffset;
  std::optional<std::int32_t> m_wordAfterStore;
};

WatchedTable* WatchedTable::s_watched = nullptr;

struct CallTableTest : testing::Test {
  PackedCallTable none = PackCallTable({}, kTableSize);
  PackedCallTable one = PackCallTable({MakeCall(1, 10)}, kTableSize);
  PackedCallTable two = PackCallTable({MakeCall(1, 10), MakeCall(2, 5)}, kTableSize);
  WatchedTable table;

  void ExpectHolds(const PackedCallTable& expected) {
    EXPECT_EQ(std::memcmp(table.Memory(), expected.contents.data(), expected.contents.size()), 0);
  }
};

TEST_F(CallTableTest, TheNumberOfCallsIsWrittenLastWhenItGrows) {
  RewriteCallTable(table.Memory(), {}, one);
  table.WatchRecords();
  RewriteCallTable(table.Memory(), one, two);
  EXPECT_EQ(table.CountAtWrite(), 1);
  ExpectHolds(two);
}

TEST_F(CallTableTest, TheNumberOfCallsIsWrittenFirstWhenItShrinks) {
  RewriteCallTable(table.Memory(), {}, two);
  table.WatchRecords();
  RewriteCallTable(table.Memory(), two, one);
  EXPECT_EQ(table.CountAtWrite(), 1);
  ExpectHolds(one);
  for (std::size_t i = one.contents.size(); i < two.contents.size(); ++i) {
    ASSERT_EQ(table.Memory()[i], 0) << "nothing of a longer table stays behind";
  }
}

TEST_F(CallTableTest, AnEmptyTableIsFilledWithTheNumberOfCallsLast) {
  RewriteCallTable(table.Memory(), {}, none);
  table.WatchRecords();
  RewriteCallTable(table.Memory(), none, two);
  EXPECT_EQ(table.CountAtWrite(), 0);
  ExpectHolds(two);
}

TEST_F(CallTableTest, WhenSecondsTickNothingElseIsWritten) {
  RewriteCallTable(table.Memory(), {}, two);
  const PackedCallTable later = PackCallTable({MakeCall(1, 11), MakeCall(2, 6)}, kTableSize);
  // A mark in every byte that is not to be touched.
  Bytes expected(two.contents.size(), 0xEE);
  std::memset(table.Memory(), 0xEE, expected.size());
  for (const std::size_t offset : later.seconds) {
    std::memcpy(expected.data() + offset, later.contents.data() + offset, sizeof(std::int32_t));
  }
  RewriteCallTable(table.Memory(), two, later);
  EXPECT_EQ(Bytes(table.Memory(), table.Memory() + expected.size()), expected);
}

TEST_F(CallTableTest, ATickOfOneCallLeavesTheOtherAlone) {
  RewriteCallTable(table.Memory(), {}, two);
  const PackedCallTable later = PackCallTable({MakeCall(1, 11), MakeCall(2, 5)}, kTableSize);
  table.WatchCount();
  RewriteCallTable(table.Memory(), two, later);
  EXPECT_FALSE(table.CountAtWrite());
  ExpectHolds(later);
}

#ifdef __x86_64__  // other processors do not stop a program after one instruction
TEST_F(CallTableTest, ATickIsOneStoreThoughItsAddressIsNotAligned) {
  const PackedCallTable before = PackCallTable({MakeCall(1, 10), MakeCall(2, 255)}, kTableSize);
  const PackedCallTable later = PackCallTable({MakeCall(1, 10), MakeCall(2, 256)}, kTableSize);
  const std::size_t offset = later.seconds[1];
  ASSERT_NE(offset % sizeof(std::int32_t), 0U);
  RewriteCallTable(table.Memory(), {}, before);
  ASSERT_EQ(table.Word(offset), 255);
  table.WatchFirstStore(offset);
  RewriteCallTable(table.Memory(), before, later);
  EXPECT_EQ(table.WordAfterFirstStore(), 256);
}
#endif

/// The segment of the running service, attached to be read as fast as can be.
class AttachedTable {
 public:
  AttachedTable()
      : m_address(shmat(bttest::FindSegment(SH_CALL_INFO_LIST)->identifier, nullptr, SHM_RDONLY)) {}
  ~AttachedTable() { shmdt(m_address); }
  AttachedTable(const AttachedTable&) = delete;
  AttachedTable& operator=(const AttachedTable&) = delete;

  void Read(Bytes& copy) const {
    std::memcpy(copy.data(), m_address, copy.size());
    std::atomic_signal_fence(std::memory_order_seq_cst);  // each turn of a loop reads anew
  }

 private:
  void* m_address;
};

/// Takes the seconds of both slots out of a copy of the table. False if it cannot be read.
bool TakeSeconds(Bytes& copy, std::array<int, 2>& seconds) {
  SegmentReader reader(copy.data(), copy.data() + copy.size());
  int number = 0;
  std::string text;
  bool isWhole = reader.ReadInt(number);
  for (int& ticking : seconds) {
    for (int i = 0; i < 4; ++i) {
      isWhole = isWhole && reader.ReadInt(number);
    }
    const std::size_t offset = reader.Cursor() - copy.data();
    isWhole = isWhole && reader.ReadInt(ticking);
    for (int i = 0; i < 3; ++i) {
      isWhole = isWhole && reader.ReadString(text);
    }
    if (isWhole) {
      std::memset(copy.data() + offset, 0, sizeof(std::int32_t));
    }
  }
  return isWhole;
}

TEST(RunningCallTableTest, NoReadIsTornWhileOnlySecondsTick) {
  // A thousand ticks a second, and reads without a pause until two thousand have come: each tick is met by
  // some of them. How many reads that makes depends on the machine; the result has their number. In this
  // world nobody gives up ringing.
  RunningService service({"--speed", "1000", "--world", BTTEST_FULL_WORLD});
  ASSERT_TRUE(service.WaitFor("OnPBDownloadStatus (byte 0x03, byte 0x06)"));
  for (const char* const number : {"+49170000002", "+49170000003"}) {
    ASSERT_EQ(service.Control("Call", g_variant_new("(ss)", kPhone, number)), "(true,)");
    ASSERT_EQ(service.Ask("AcceptCall"), "(true,)");
  }
  ASSERT_TRUE(service.WaitFor("OnCallingTimeChanged (1, 2, true)"));

  const AttachedTable table;
  Bytes copy(256);
  std::array<int, 2> seconds{};
  table.Read(copy);
  ASSERT_TRUE(TakeSeconds(copy, seconds));
  const Bytes expected = copy;

  constexpr int kTicks = 2000;
  const int first = seconds[0];
  long reads = 0;
  long torn = 0;
  ASSERT_TRUE(bttest::WaitUntil([&] {
    for (int i = 0; i < 10000; ++i) {
      const std::array<int, 2> before = seconds;
      table.Read(copy);
      // A number that is torn upwards falls at the next read.
      torn +=
          !TakeSeconds(copy, seconds) || copy != expected || seconds[0] < before[0] || seconds[1] < before[1];
      ++reads;
    }
    return seconds[0] - first > kTicks || torn > 0;
  }));
  EXPECT_EQ(torn, 0) << "of " << reads << " reads";
  RecordProperty("reads", std::to_string(reads));
}

}  // namespace
}  // namespace btservice
