// Somebody else writes to a segment all the time: what is answered is one list or the other, never a mixture.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include <sys/ipc.h>
#include <sys/shm.h>

#include <gmock/gmock.h>

#include "tests/async/ListsFixture.h"

namespace {

using namespace btasync;
using bttest::ContactItems;
using bttest::Wait;

constexpr int kContacts = 3000;  // so many that a look takes a while
constexpr int kFew = 200;

/// Writes one list after the other, all of the same size and no two alike, without waiting for anybody: what
/// is a mixture at one moment is never the same mixture again, unless the writer is stopped in the middle.
class RacingWriter {
 public:
  explicit RacingWriter(ShareMemID id)
      : m_memory(static_cast<unsigned char*>(shmat(bttest::FindSegment(id)->identifier, nullptr, 0))),
        m_thread([this] { Run(); }) {}
  RacingWriter(const RacingWriter&) = delete;
  RacingWriter& operator=(const RacingWriter&) = delete;
  ~RacingWriter() {
    m_stop = true;
    m_thread.join();
    shmdt(m_memory);
  }

  /// How often it has written a list.
  int Rounds() const { return m_rounds; }
  /// How often something kept it from going on in the middle of a list. Two looks may then see the same half.
  int Stalls() const { return m_stalls; }

 private:
  using Clock = std::chrono::steady_clock;

  void Run() {
    while (!m_stop) {
      Write(ContactItems(kContacts, NameOf(m_rounds)).Bytes());
      ++m_rounds;
      // Long enough that some lists are read as a whole.
      std::this_thread::sleep_for(std::chrono::milliseconds(m_rounds % 2));
    }
  }

  /// Another one for each list, and always as long.
  static std::string NameOf(int list) {
    constexpr int kLetters = 26;
    std::string name = "Aaaa";
    for (char& letter : name) {
      letter = static_cast<char>(letter + list % kLetters);
      list /= kLetters;
    }
    return name;
  }

  /// As another process writes: behind the back of the reader's compiler.
  void Write(const std::vector<unsigned char>& bytes) {
    constexpr std::size_t kChunk = 64;
    constexpr std::chrono::microseconds kLongest{20};  // less than the service takes to answer
    volatile unsigned char* const target = m_memory;
    Clock::time_point before = Clock::now();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      target[i] = bytes[i];
      if (i % kChunk == 0) {
        const Clock::time_point now = Clock::now();
        m_stalls += now - before > kLongest ? 1 : 0;
        before = now;
      }
    }
    m_stalls += Clock::now() - before > kLongest ? 1 : 0;
  }

  unsigned char* const m_memory;
  std::atomic<bool> m_stop{false};
  std::atomic<int> m_rounds{0};
  std::atomic<int> m_stalls{0};
  std::thread m_thread;
};

class RacingWriters : public bttest::ListsFixture {};

TEST_F(RacingWriters, NeverMakeAListOfTwo) {
  ContactItems(kContacts).Publish(SH_CONTACT_LIST);
  SetCount(kContacts);
  const RacingWriter writer(SH_CONTACT_LIST);
  int whole = 0;
  for (int reads = 0; reads < 1000 || whole < 10; ++reads) {
    const int stallsBefore = writer.Stalls();
    const auto contacts = Wait(service.Contacts());
    if (!contacts) {
      ASSERT_EQ(contacts.Why().reason, Reason::Malformed);
      continue;
    }
    const auto isOther = [&](const auto& contact) { return contact.strText1 != contacts->front().strText1; };
    if (std::any_of(contacts->begin(), contacts->end(), isOther)) {
      const int rounds = writer.Rounds();
      ASSERT_TRUE(bttest::RunUntil([&] { return writer.Rounds() > rounds; }));
      ASSERT_GT(writer.Stalls(), stallsBefore) << "read " << reads << ": nothing stopped the writer";
      continue;
    }
    ++whole;
    ASSERT_EQ(contacts->size(), static_cast<std::size_t>(kContacts));
  }
}

/// Two loops that ask for the same lists and give some of them up while other threads read them.
TEST_F(RacingWriters, AndLoopsInTwoThreadsMayReadTheSameLists) {
  ContactItems(kFew).Publish(SH_CONTACT_LIST);
  ContactItems(kFew).Publish(SH_FAV_CONTACT_LIST);
  SetCount(kFew);
  std::atomic<int> answers{0};
  const auto run = [&answers] {
    const OwnedMainContext context(g_main_context_new());
    g_main_context_push_thread_default(context.get());
    {
      Service own;
      for (int round = 0; round < 50; ++round) {
        Scope given;
        int wanted = 0;
        {
          Scope dropped;
          own.Contacts().Then(dropped, [](const auto&) {});
          own.FavoriteContacts().Then(given, [&](const auto& answer) {
            EXPECT_TRUE(answer) << answer.Why().detail;
            ++wanted;
          });
          for (int turns = 0; turns < round % 10; ++turns) {
            g_main_context_iteration(context.get(), FALSE);
          }
        }
        own.Contacts().Then(given, [&](const auto& answer) {
          EXPECT_TRUE(answer) << answer.Why().detail;
          ++wanted;
        });
        while (wanted < 2) {
          g_main_context_iteration(context.get(), TRUE);
        }
        answers += wanted;
      }
    }
    g_main_context_pop_thread_default(context.get());
  };
  std::thread one(run);
  std::thread other(run);
  one.join();
  other.join();
  EXPECT_EQ(answers, 200);
}

}  // namespace
