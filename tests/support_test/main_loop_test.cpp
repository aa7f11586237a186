#include "support/MainLoop.h"

#include <atomic>
#include <stdexcept>

#include <gtest/gtest.h>

#include "glib/OwnedId.h"

namespace bttest {
namespace {

using std::chrono::milliseconds;

TEST(RunUntil, DispatchesUntilTheConditionIsTrue) {
  int calls = 0;
  const OwnedSourceId source(g_idle_add(
      [](gpointer data) -> gboolean {
        ++*static_cast<int*>(data);
        return G_SOURCE_CONTINUE;
      },
      &calls));
  EXPECT_TRUE(RunUntil([&] { return calls == 3; }));
  EXPECT_EQ(3, calls);
}

TEST(RunUntil, GivesUpAfterItsBound) {
  EXPECT_FALSE(RunUntil([] { return false; }, milliseconds(20)));
}

TEST(RunUntil, NoticesWhatAnotherThreadMakesTrue) {
  std::atomic<bool> done{false};
  std::thread other([&] { done = true; });
  EXPECT_TRUE(RunUntil([&] { return done.load(); }));
  other.join();
}

TEST(LoopThread, RunsTheDefaultContextElsewhere) {
  LoopThread loop;
  std::thread::id where;
  loop.Invoke([&] { where = std::this_thread::get_id(); });
  EXPECT_NE(std::this_thread::get_id(), where);
  EXPECT_FALSE(g_main_context_acquire(nullptr)) << "the loop does not run the default context";
}

TEST(LoopThread, CanHaveAContextOfItsOwnAsThreadDefault) {
  LoopThread loop(LoopThread::Context::OWN);
  GMainContext* context = nullptr;
  loop.Invoke([&] { context = g_main_context_get_thread_default(); });
  EXPECT_NE(nullptr, context);
  EXPECT_NE(g_main_context_default(), context);
}

TEST(LoopThread, HandsExceptionsOfATaskToTheCaller) {
  LoopThread loop;
  EXPECT_THROW(loop.Invoke([] { throw std::runtime_error("from there"); }), std::runtime_error);
}

}  // namespace
}  // namespace bttest
