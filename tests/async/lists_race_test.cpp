// Somebody else writes to a segment all the time: what is answered is one list or the other, never a mixture.

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

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

/// Writes one list after the other, all of the same size and no two alike, without waiting for the reader:
/// what is a mixture at one moment is never the same mixture again once it has gone on.
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

  /// How much it has written, in all lists.
  std::uint64_t Progress() const { return m_progress; }
  /// Holds it back between two lists, for as long as the lock lives.
  std::unique_lock<std::mutex> HoldBack() { return std::unique_lock(m_list); }

 private:
  void Run() {
    for (int list = 0; !m_stop; ++list) {
      {
        const std::lock_guard<std::mutex> lock(m_list);
        Write(ContactItems(kContacts, NameOf(list)).Bytes());
      }
      std::this_thread::yield();
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
    volatile unsigned char* const target = m_memory;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      target[i] = bytes[i];
      m_progress.fetch_add(target[i] != 0 ? 1 : 0, std::memory_order_relaxed);
    }
  }

  unsigned char* const m_memory;
  std::atomic<bool> m_stop{false};
  std::atomic<std::uint64_t> m_progress{0};
  std::mutex m_list;
  std::thread m_thread;
};

class RacingWriters : public bttest::ListsFixture {
 protected:
  using Contacts = Answer<std::vector<MWPTypeContact>>;

  /// Reads the list, and sees to it that the writer goes on between two looks at it.
  Contacts ReadWhileItIsWritten(const RacingWriter& writer) {
    std::optional<Contacts> answer;
    Scope scope;
    recorder.Hang("GetContactCount");
    service.Contacts().Then(scope, [&](Contacts given) { answer.emplace(std::move(given)); });
    while (!answer) {
      EXPECT_TRUE(bttest::RunUntil([&] { return answer || IsCounting(); }));
      const std::uint64_t before = writer.Progress();
      EXPECT_TRUE(bttest::RunUntil([&] { return writer.Progress() > before + kLonger; }));
      recorder.Release("GetContactCount");
      recorder.Hang("GetContactCount");
    }
    recorder.Release("GetContactCount");
    return *std::move(answer);
  }

 private:
  /// More than one name, so that what is written is not what was there.
  static constexpr std::uint64_t kLonger = 1000;

  bool IsCounting() {
    const auto calls = recorder.TakeCallTexts();
    return std::find(calls.begin(), calls.end(), "GetContactCount()") != calls.end();
  }
};

TEST_F(RacingWriters, NeverMakeAListOfTwo) {
  ContactItems(kContacts).Publish(SH_CONTACT_LIST);
  SetCount(kContacts);
  RacingWriter writer(SH_CONTACT_LIST);
  const auto isWhole = [](const std::vector<MWPTypeContact>& contacts) {
    return contacts.size() == kContacts &&
           std::all_of(contacts.begin(), contacts.end(),
                       [&](const auto& contact) { return contact.strText1 == contacts.front().strText1; });
  };
  for (int read = 0; read < 100; ++read) {
    const Contacts racing = ReadWhileItIsWritten(writer);
    if (racing) {
      ASSERT_TRUE(isWhole(*racing)) << "read " << read;
    } else {
      ASSERT_EQ(racing.Why().reason, Reason::Malformed) << racing.Why().detail;
    }
    if (read % 10 == 0) {
      const auto heldBack = writer.HoldBack();
      const Contacts still = Wait(service.Contacts());
      ASSERT_TRUE(still) << still.Why().detail;
      ASSERT_TRUE(isWhole(*still)) << "read " << read;
    }
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
