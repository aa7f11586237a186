// Requests for lists that wait for each other, fail on the way, are dropped, or lose their service object.

#include <atomic>
#include <functional>
#include <memory>
#include <random>

#include <gmock/gmock.h>

#include "glib/OwnedId.h"
#include "support/Waiting.h"
#include "tests/async/ListsFixture.h"

namespace {

using namespace btasync;
using bttest::CallLogItems;
using bttest::ContactItems;
using bttest::DeviceItems;
using bttest::RunUntil;
using bttest::Wait;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;

class ListLives : public bttest::ListsFixture {
 protected:
  ListLives() {
    ContactItems(300).Publish(SH_CONTACT_LIST);
    ContactItems(300).Publish(SH_FAV_CONTACT_LIST);
    CallLogItems({CALL_LOG_MISSED}).Publish(SH_CALL_LOG_LIST);
    ContactItems(1).Publish(SH_CONTACT_INFO);
    CallLogItems({CALL_LOG_MISSED}).Publish(SH_CALL_LOG_INFO);
    DeviceItems({"00:1A:7D:DA:71:13"}).Publish(SH_PAIRED_LIST);
    recorder.SetReply("GetContactCount", g_variant_new("(i)", 300));
    recorder.SetReply("GetCallLogCount", g_variant_new("(i)", 1));
  }
};

/// A service object of another thread, and its loop.
class OtherLoop {
 public:
  OtherLoop() {
    m_thread.Invoke([this] {
      m_service.emplace();
      m_scope.emplace();
    });
  }
  ~OtherLoop() {
    m_thread.Invoke([this] {
      m_scope.reset();
      m_service.reset();
    });
  }

  void Invoke(const std::function<void(Service&, Scope&)>& task) {
    m_thread.Invoke([&] { task(*m_service, *m_scope); });
  }

 private:
  bttest::LoopThread m_thread{bttest::LoopThread::Context::OWN};
  std::optional<Service> m_service;
  std::optional<Scope> m_scope;
};

TEST_F(ListLives, RequestsForOnePlaceGoOneAfterTheOther) {
  Scope scope;
  int answers = 0;
  const auto count = [&](const auto&) { ++answers; };
  service.CallLogs(CALL_LOG_MISSED).Then(scope, count);
  service.CallLogs(CALL_LOG_ALL).Then(scope, count);
  service.CallLogs(CALL_LOG_MISSED).Then(scope, count);
  ASSERT_TRUE(RunUntil([&] { return answers == 3; }));
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("GetCallLogList(byte 0x03,)", "GetCallLogCount(byte 0x03,)",
                          "GetCallLogList(byte 0x00,)", "GetCallLogCount(byte 0x00,)",
                          "GetCallLogList(byte 0x03,)", "GetCallLogCount(byte 0x03,)"));
}

TEST_F(ListLives, RequestsForOtherPlacesDoNotWait) {
  recorder.Hang("GetContactList");
  Scope scope;
  service.Contacts().Then(scope, [](const auto&) {});
  EXPECT_TRUE(Wait(service.CallLogs(CALL_LOG_MISSED)));
  EXPECT_TRUE(Wait(service.FavoriteContacts()));
}

TEST_F(ListLives, RequestsOfAnotherThreadForTheSamePlaceWaitToo) {
  recorder.Hang("GetCallLogCount");
  Scope scope;
  bool isAnswered = false;
  service.CallLogs(CALL_LOG_MISSED).Then(scope, [&](const auto&) { isAnswered = true; });
  ASSERT_TRUE(WaitForCall("GetCallLogCount(byte 0x03,)"));

  OtherLoop other;
  std::atomic<bool> isOtherAnswered{false};
  std::atomic<bool> isConnected{false};
  other.Invoke([&](Service& theirs, Scope& theirScope) {
    theirs.CallLogs(CALL_LOG_ALL).Then(theirScope, [&](const auto&) { isOtherAnswered = true; });
    theirs.GetOwnNumber().Then(theirScope, [&](const auto&) { isConnected = true; });
  });
  ASSERT_TRUE(RunUntil([&] { return isConnected.load(); }));
  EXPECT_THAT(recorder.TakeCallTexts(), ElementsAre("GetCurrentMobilePhoneNumber()"));
  recorder.Release("GetCallLogCount");
  ASSERT_TRUE(RunUntil([&] { return isAnswered && isOtherAnswered; }));
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("GetCallLogList(byte 0x00,)", "GetCallLogCount(byte 0x00,)"));
}

TEST_F(ListLives, WhatIsDroppedLetsTheNextOneGo) {
  recorder.Hang("GetCallLogList");
  std::optional<Scope> scope(std::in_place);
  service.CallLogs(CALL_LOG_MISSED).Then(*scope, [](const auto&) { ADD_FAILURE() << "it was dropped"; });
  service.CallLogs(CALL_LOG_OUTGOING).Then(*scope, [](const auto&) { ADD_FAILURE() << "it was dropped"; });
  Scope other;
  service.CallLogs(CALL_LOG_ALL).Then(other, [](const auto&) {});
  ASSERT_TRUE(WaitForCall("GetCallLogList(byte 0x03,)"));
  scope.reset();
  ASSERT_TRUE(WaitForCall("GetCallLogList(byte 0x00,)"));
  EXPECT_EQ(seen.size(), 2u) << "the second was dropped before its turn";
}

TEST_F(ListLives, ACancelledOneSaysSoAndLetsTheNextOneGo) {
  recorder.Hang("GetContactCount");
  Scope scope;
  std::optional<Reason> reason;
  Call call = service.Contacts().Then(scope, [&](const auto& answer) { reason = answer.Why().reason; });
  ASSERT_TRUE(WaitForCall("GetContactCount()"));
  call.Cancel();
  service.Contacts().Then(scope, [](const auto&) {});
  ASSERT_TRUE(WaitForCall("GetContactList()"));
  EXPECT_EQ(reason, Reason::Cancelled);
}

TEST_F(ListLives, ARefusalIsARefusal) {
  for (const char* const method : {"GetContactList", "GetFavContactList", "GetCallLogList"}) {
    recorder.SetReply(method, g_variant_new("(b)", FALSE));
  }
  EXPECT_TRUE(Wait(service.Contacts()).Refused());
  EXPECT_TRUE(Wait(service.FavoriteContacts()).Refused());
  EXPECT_TRUE(Wait(service.CallLogs(CALL_LOG_ALL)).Refused());
  EXPECT_THAT(recorder.TakeCallTexts(),
              ElementsAre("GetContactList()", "GetFavContactList()", "GetCallLogList(byte 0x00,)"));
}

TEST_F(ListLives, AFailureOfEitherCallIsTheAnswer) {
  for (const char* const method : {"GetContactList", "GetContactCount"}) {
    recorder.FailNext(method, 1, "org.example.Tired", "not today");
    const auto answer = Wait(service.Contacts());
    EXPECT_EQ(answer.Why().reason, Reason::ServiceError) << method;
    EXPECT_THAT(answer.Why().detail, HasSubstr("org.example.Tired: not today"));
    recorder.ReplyWrongType(method);
    EXPECT_EQ(Wait(service.Contacts()).Why().reason, Reason::Malformed) << method;
    recorder.Reset();
    recorder.SetReply("GetContactList", g_variant_new("(b)", TRUE));
  }
}

TEST_F(ListLives, TheDeadlineIsThatOfEverything) {
  constexpr milliseconds kDeadline{300};
  for (const char* const method : {"GetContactList", "GetContactCount"}) {
    recorder.Hang(method);
    const auto answer = Wait(service.Contacts().Within(kDeadline));
    EXPECT_EQ(answer.Why().reason, Reason::TimedOut) << method;
    recorder.Release(method);
  }
  // Each call would be in time.
  recorder.Delay("GetContactList", milliseconds(200));
  recorder.Delay("GetContactCount", milliseconds(200));
  EXPECT_EQ(Wait(service.Contacts().Within(kDeadline)).Why().reason, Reason::TimedOut);
}

TEST_F(ListLives, TheDeadlineRunsWhileOthersAreUnderWay) {
  recorder.Hang("GetContactList");
  Scope scope;
  service.Contacts().Then(scope, [](const auto&) {});
  const auto answer = Wait(service.Contacts().Within(milliseconds(50)));
  EXPECT_EQ(answer.Why().reason, Reason::TimedOut);
  EXPECT_EQ(answer.Why().detail, "Contacts: other requests for the same place were not done in time");
}

TEST_F(ListLives, AServiceThatDiesInBetweenIsGone) {
  for (const char* const method : {"GetContactList", "GetContactCount"}) {
    bttest::Recorder mortal(bttest::Recorder::Name::NOT_YET);
    recorder.ReleaseName();
    mortal.OwnName();
    mortal.SetReply("GetContactList", g_variant_new("(b)", TRUE));
    mortal.DieOn(method);
    EXPECT_EQ(Wait(service.Contacts()).Why().reason, Reason::ServiceGone) << method;
    recorder.OwnName();
  }
}

/// Starts one of the requests.
void Start(Service& service, int which, Scope& scope, int& answers) {
  const auto count = [&answers](const auto&) { ++answers; };
  switch (which) {
    case 0:
      service.Contacts().Then(scope, count);
      break;
    case 1:
      service.FavoriteContacts().Then(scope, count);
      break;
    case 2:
      service.CallLogs(CALL_LOG_ALL).Then(scope, count);
      break;
    case 3:
      service.GetContact(1).Then(scope, count);
      break;
    case 4:
      service.GetCallLog(10).Then(scope, count);
      break;
    case 5:
      service.PairedDevices().Then(scope, count);
      break;
    case 6:
      service.CurrentCalls().Then(scope, count);
      break;
    default:
      service.Contacts().Send();
  }
}

TEST_F(ListLives, ScopesAndServicesMayGoAtAnyPoint) {
  std::minstd_rand random(1);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  int answers = 0;
  auto other = std::make_unique<Service>();
  OwnedSourceId tick(g_timeout_add(
      1, [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr));
  for (int round = 0; round < 400; ++round) {
    auto scope = std::make_unique<Scope>();
    for (int requests = 1 + below(5); requests > 0; --requests) {
      Start(*other, below(8), *scope, answers);
    }
    for (int turns = below(30); turns > 0; --turns) {
      g_main_context_iteration(nullptr, below(2) != 0);
    }
    const int before = answers;
    if (below(4) == 0) {
      other.reset();
      g_main_context_iteration(nullptr, TRUE);
      EXPECT_EQ(answers, before);
      other = std::make_unique<Service>();
    } else if (below(2) == 0) {
      scope.reset();
      g_main_context_iteration(nullptr, TRUE);
      EXPECT_EQ(answers, before);
    }
  }
  tick.reset();
  EXPECT_GT(answers, 0);
  EXPECT_TRUE(Wait(service.Contacts())) << "nobody holds the place";
  EXPECT_TRUE(Wait(service.CallLogs(CALL_LOG_ALL)));
}

TEST_F(ListLives, ACompletionMayDestroyEverything) {
  auto other = std::make_unique<Service>();
  auto scope = std::make_unique<Scope>();
  bool isAnswered = false;
  for (int which = 0; which < 7; ++which) {
    isAnswered = false;
    const auto end = [&](const auto&) {
      isAnswered = true;
      scope.reset();
      other.reset();
    };
    other->Contacts().Then(*scope, end);
    other->Contacts().Then(*scope, [](const auto&) { ADD_FAILURE() << "everything was destroyed"; });
    ASSERT_TRUE(RunUntil([&] { return isAnswered; }));
    other = std::make_unique<Service>();
    scope = std::make_unique<Scope>();
    other->PairedDevices().Then(*scope, end);
    ASSERT_TRUE(RunUntil([&] { return other == nullptr; }));
    other = std::make_unique<Service>();
    scope = std::make_unique<Scope>();
  }
  EXPECT_TRUE(Wait(service.Contacts()));
}

}  // namespace
