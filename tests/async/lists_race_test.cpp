// Somebody else writes to a segment all the time: what is answered is one list or the other, never a mixture.

#include <atomic>
#include <cstring>
#include <thread>

#include <sys/ipc.h>
#include <sys/shm.h>

#include <gmock/gmock.h>

#include "tests/async/ListsFixture.h"

namespace {

using namespace btasync;
using bttest::ContactItems;
using bttest::Wait;

constexpr int kContacts = 200;
constexpr std::ptrdiff_t kCountBytes = 4;

/// Writes two lists in turn, as the service does, the number of records last, but without waiting for
/// anybody.
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

 private:
  void Run() {
    const bttest::SegmentItems lists[] = {ContactItems(kContacts, "Ada"),
                                          ContactItems(kContacts, "Bernadette")};
    for (unsigned round = 0; !m_stop; ++round) {
      const std::vector<unsigned char>& bytes = lists[round % 2].Bytes();
      Write(std::vector<unsigned char>(kCountBytes), 0);
      Write({bytes.begin() + kCountBytes, bytes.end()}, kCountBytes);
      Write({bytes.begin(), bytes.begin() + kCountBytes}, 0);
      // Long enough that some lists are read as a whole.
      std::this_thread::sleep_for(std::chrono::milliseconds(round % 5));
    }
  }

  /// As another process writes: behind the back of the reader's compiler.
  void Write(const std::vector<unsigned char>& bytes, std::size_t place) {
    volatile unsigned char* const target = m_memory + place;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      target[i] = bytes[i];
    }
  }

  unsigned char* const m_memory;
  std::atomic<bool> m_stop{false};
  std::thread m_thread;
};

class RacingWriters : public bttest::ListsFixture {};

TEST_F(RacingWriters, NeverMakeAListOfTwo) {
  SetCount(kContacts);
  const RacingWriter writer(SH_CONTACT_LIST);
  const RacingWriter otherWriter(SH_FAV_CONTACT_LIST);
  int whole = 0;
  for (int reads = 0; reads < 300 || whole < 10; ++reads) {
    const auto contacts = reads % 2 == 0 ? Wait(service.Contacts()) : Wait(service.FavoriteContacts());
    if (!contacts) {
      ASSERT_EQ(contacts.Why().reason, Reason::Malformed);
      continue;
    }
    if (contacts->empty()) {
      ASSERT_EQ(reads % 2, 1) << "only favourites have no number to compare with";
      continue;
    }
    ++whole;
    ASSERT_EQ(contacts->size(), static_cast<std::size_t>(kContacts));
    for (const MWPTypeContact& contact : *contacts) {
      ASSERT_EQ(contact.strText1, contacts->front().strText1) << "read " << reads;
    }
  }
}

/// Two loops that ask for the same lists and give some of them up while other threads read them.
TEST_F(RacingWriters, AndLoopsInTwoThreadsMayReadTheSameLists) {
  ContactItems(kContacts).Publish(SH_CONTACT_LIST);
  ContactItems(kContacts).Publish(SH_FAV_CONTACT_LIST);
  SetCount(kContacts);
  std::atomic<int> answers{0};
  const auto run = [&answers] {
    GMainContext* const context = g_main_context_new();
    g_main_context_push_thread_default(context);
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
            g_main_context_iteration(context, FALSE);
          }
        }
        own.Contacts().Then(given, [&](const auto& answer) {
          EXPECT_TRUE(answer) << answer.Why().detail;
          ++wanted;
        });
        while (wanted < 2) {
          g_main_context_iteration(context, TRUE);
        }
        answers += wanted;
      }
    }
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
  };
  std::thread one(run);
  std::thread other(run);
  one.join();
  other.join();
  EXPECT_EQ(answers, 200);
}

}  // namespace
