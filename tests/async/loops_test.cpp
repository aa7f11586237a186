// The loops that a program may have: GLib's default one, another of GLib's, and a poll() of its own.

#include <poll.h>
#include <unistd.h>

#include <thread>

#include <btasync/PollLoop.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

class LoopsTest : public testing::Test {
 protected:
  LoopsTest() { recorder.SetReply("GetPowerStatus", g_variant_new("(y)", BT_POWER_ON)); }

  bttest::BusDaemon bus;
  bttest::Recorder recorder;
};

TEST_F(LoopsTest, AContextOfItsOwnOfTheSameThread) {
  const OwnedMainContext context(g_main_context_new());
  {
    Service service(context.get());
    Scope scope;
    std::optional<PowerStatus> status;
    int events = 0;
    service.On<PowerChanged>(scope, [&](const PowerChanged&) { ++events; });
    service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus> answer) { status = *answer; });
    EXPECT_TRUE(bttest::WaitUntil([&] {
      bttest::RunPending();  // of the default context.get(), which has no part in this
      EXPECT_FALSE(status);
      return g_main_context_pending(context.get()) != FALSE;
    }));
    EXPECT_TRUE(bttest::WaitUntil([&] {
      g_main_context_iteration(context.get(), FALSE);
      return status.has_value();
    }));
    EXPECT_EQ(status, BT_POWER_ON);
    recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON));
    EXPECT_TRUE(bttest::WaitUntil([&] {
      g_main_context_iteration(context.get(), FALSE);
      return events == 1;
    }));
  }
  while (g_main_context_iteration(context.get(), FALSE)) {
  }
}

TEST_F(LoopsTest, TheLoopOfAnotherThread) {
  bttest::LoopThread thread(bttest::LoopThread::Context::OWN);
  std::unique_ptr<Service> service;
  std::unique_ptr<Scope> scope;
  std::thread::id made;
  std::atomic<bool> isRight{false};
  thread.Invoke([&] {
    made = std::this_thread::get_id();
    service = std::make_unique<Service>();
    scope = std::make_unique<Scope>();
    service->GetPowerStatus().Then(*scope, [&](Answer<PowerStatus> answer) {
      isRight = answer.Accepted() && std::this_thread::get_id() == made;
    });
  });
  EXPECT_TRUE(bttest::WaitUntil([&] { return isRight.load(); }));
  thread.Invoke([&] {
    scope.reset();
    service.reset();
  });
}

TEST_F(LoopsTest, APollOfTheProgramsOwn) {
  int own[2];
  ASSERT_EQ(pipe(own), 0);
  PollLoop loop;
  Service service(loop.Context());
  Scope scope;
  std::vector<std::string> order;
  service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus> answer) {
    order.emplace_back(answer.Accepted() ? "answer" : "failure");
    EXPECT_EQ(write(own[1], "x", 1), 1);
  });
  recorder.Hang("SetPower");
  service.SetPower(true).Within(20ms).Then(scope, [&](Answer<> answer) {
    order.emplace_back(answer.Failed() ? ToText(answer.Why().reason) : "answer");
  });
  EXPECT_TRUE(order.empty());
  bool isRead = false;
  const auto end = std::chrono::steady_clock::now() + bttest::kBound;
  std::vector<pollfd> fds;
  while ((order.size() < 2 || !isRead) && std::chrono::steady_clock::now() < end) {
    fds.assign({{own[0], POLLIN, 0}});
    int timeoutMs = -1;
    loop.Prepare(fds, timeoutMs);
    ASSERT_GE(fds.size(), 2u) << "its own is waited for, too";
    ASSERT_GE(poll(fds.data(), fds.size(), timeoutMs), 0);
    if ((fds[0].revents & POLLIN) != 0) {
      char byte = 0;
      EXPECT_EQ(read(own[0], &byte, 1), 1);
      isRead = true;
    }
    loop.Dispatch(fds);
  }
  EXPECT_TRUE(isRead);
  EXPECT_THAT(order, testing::UnorderedElementsAre("answer", "timed out"));
  close(own[0]);
  close(own[1]);
}

TEST_F(LoopsTest, APollKeepsTheShorterTime) {
  PollLoop loop;
  Service service(loop.Context());
  Timer timer(service);
  timer.Start(1h, [] {});
  std::vector<pollfd> fds;
  int timeoutMs = 3;
  loop.Prepare(fds, timeoutMs);
  EXPECT_LE(timeoutMs, 3);
  EXPECT_GE(timeoutMs, 0);
  loop.Dispatch(fds);
}

TEST_F(LoopsTest, APollMayBePreparedAgainInsteadOfDispatched) {
  bttest::LogCapture log;
  PollLoop loop;
  Service service(loop.Context());
  Scope scope;
  bool isAnswered = false;
  service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus> answer) { isAnswered = answer.Accepted(); });
  EXPECT_TRUE(bttest::WaitUntil([&] {
    std::vector<pollfd> fds;
    int timeoutMs = 0;
    for (int i = 0; i < 3; ++i) {
      fds.clear();
      loop.Prepare(fds, timeoutMs);
      EXPECT_FALSE(fds.empty());
    }
    poll(fds.data(), fds.size(), 0);
    loop.Dispatch(fds);
    return isAnswered;
  }));
  EXPECT_THAT(log.Complaints(), testing::IsEmpty());
}

TEST_F(LoopsTest, ACallbackMayRunATurnOfAPollOfItsOwn) {
  PollLoop loop;
  Service service(loop.Context());
  Scope scope;
  const auto turn = [&] {
    std::vector<pollfd> fds;
    int timeoutMs = 0;
    loop.Prepare(fds, timeoutMs);
    poll(fds.data(), fds.size(), 0);
    loop.Dispatch(fds);
  };
  std::vector<std::string> order;
  service.GetPowerStatus().Then(scope, [&](Answer<PowerStatus>) {
    service.GetCallCount().Then(scope, [&](Answer<unsigned>) { order.emplace_back("inner"); });
    EXPECT_TRUE(bttest::WaitUntil([&] {
      turn();
      return !order.empty();
    }));
    order.emplace_back("outer");
  });
  EXPECT_TRUE(bttest::WaitUntil([&] {
    turn();
    return order.size() == 2;
  }));
  EXPECT_THAT(order, ElementsAre("inner", "outer"));
}

TEST_F(LoopsTest, APollThatIsGivenTheWrongThingLogsIt) {
  bttest::LogCapture log;
  PollLoop loop;
  Service service(loop.Context());
  std::vector<pollfd> fds;
  int timeoutMs = -1;
  loop.Prepare(fds, timeoutMs);
  loop.Dispatch({});
  EXPECT_THAT(log.Complaints(), ElementsAre(HasSubstr("taken for nothing")));
  log.Clear();
  std::thread([&] { loop.Prepare(fds, timeoutMs); }).join();
  std::thread([&] { loop.Dispatch(fds); }).join();
  EXPECT_THAT(log.Complaints(), ElementsAre(HasSubstr("what to poll"), HasSubstr("what has been polled")));
}

TEST_F(LoopsTest, TwoServicesOnTwoLoopsDoNotDisturbEachOther) {
  const OwnedMainContext context(g_main_context_new());
  {
    Service first;
    Service second(context.get());
    Scope scope;
    bool isDone = false;
    second.GetPowerStatus().Then(scope, [&](Answer<PowerStatus>) { isDone = true; });
    EXPECT_TRUE(bttest::Wait(first.GetPowerStatus()).Accepted());
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(bttest::WaitUntil([&] {
      g_main_context_iteration(context.get(), FALSE);
      return isDone;
    }));
  }
  while (g_main_context_iteration(context.get(), FALSE)) {
  }
}

}  // namespace
