// The registry template, and the hooks that a service adds to it.

#include <future>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <mwp/IMWPListener.h>

#include "libbluetooth/IMWPService.h"
#include "support/Waiting.h"

namespace {

struct Thing {
  virtual ~Thing() = default;
};

class CountingRegistry : public IMWPListener<Thing> {
 public:
  void OnListenerAdded(Thing*) override { ++added; }
  void OnListenerRemoved(Thing*) override { ++removed; }
  void LockListener() override {
    ++locked;
    IMWPListener<Thing>::LockListener();
  }
  int added = 0;
  int removed = 0;
  int locked = 0;
};

/// A registry, or a service, that notes when it is locked and when its hooks run.
template <typename Base>
class Tracing : public Base {
 public:
  void LockListener() override {
    Base::LockListener();
    trace.push_back("lock");
  }
  void UnlockListener() override {
    trace.push_back("unlock");
    Base::UnlockListener();
  }
  std::vector<std::string> trace;
};

class TracingRegistry : public Tracing<IMWPListener<Thing>> {
 public:
  void OnListenerAdded(Thing*) override { trace.push_back("added"); }
  void OnListenerRemoved(Thing*) override { trace.push_back("removed"); }
};

class TracingService : public Tracing<IMWPService<Thing>> {
 public:
  int InitInstance() override { return 1; }
  int ExitInstance() override { return 1; }
  void InitListener() override { trace.push_back("first"); }
  void ExitListener() override { trace.push_back("last"); }
};

class CountingService : public IMWPService<Thing> {
 public:
  int InitInstance() override { return initResult; }
  int ExitInstance() override { return 1; }
  void InitListener() override { ++first; }
  void ExitListener() override { ++last; }
  int initResult = 1;
  int first = 0;
  int last = 0;
};

TEST(Registry, NullIsIgnoredBeforeAnyLockIsTaken) {
  CountingRegistry registry;
  registry.AddListener(nullptr);
  registry.RemoveListener(nullptr);
  EXPECT_EQ(registry.locked, 0);
  EXPECT_EQ(registry.added, 0);
  EXPECT_EQ(registry.removed, 0);
}

TEST(Registry, AddingTheSameListenerTwiceLeavesOneEntryAndRunsTheHookTwice) {
  CountingRegistry registry;
  Thing thing;
  registry.AddListener(&thing);
  registry.AddListener(&thing);
  EXPECT_EQ(registry.GetListenerCount(), 1u);
  EXPECT_EQ(registry.added, 2);
}

TEST(Registry, RemovingAListenerThatIsNotThereChangesNothingButRunsTheHook) {
  CountingRegistry registry;
  Thing there, absent;
  registry.AddListener(&there);
  registry.RemoveListener(&absent);
  EXPECT_EQ(registry.GetListeners(), std::set<Thing*>{&there});
  EXPECT_EQ(registry.removed, 1);
}

TEST(Registry, ListenersStandInAscendingOrderOfTheirAddresses) {
  CountingRegistry registry;
  std::vector<Thing> things(5);
  for (const int i : {3, 0, 4, 1, 2}) {
    registry.AddListener(&things[i]);
  }
  const Thing* previous = nullptr;
  for (const Thing* thing : registry.GetListeners()) {
    EXPECT_LT(previous, thing);
    previous = thing;
  }
  EXPECT_EQ(registry.GetListenerCount(), 5u);
}

TEST(Registry, BothHooksRunInsideTheLock) {
  TracingRegistry registry;
  Thing thing;
  registry.AddListener(&thing);
  EXPECT_EQ(registry.trace, (std::vector<std::string>{"lock", "added", "unlock"}));
  registry.trace.clear();
  registry.RemoveListener(&thing);
  EXPECT_EQ(registry.trace, (std::vector<std::string>{"lock", "removed", "unlock"}));
}

TEST(Registry, TheSetAndItsSizeAreAnsweredWhileSomebodyElseHoldsTheLock) {
  CountingRegistry registry;
  Thing thing;
  registry.AddListener(&thing);
  registry.LockListener();
  std::future<std::size_t> answer = std::async(std::launch::async, [&registry] {
    return registry.GetListenerCount() + registry.GetListeners().size();
  });
  const bool isAnswered = answer.wait_for(bttest::kBound) == std::future_status::ready;
  registry.UnlockListener();
  EXPECT_TRUE(isAnswered);
  EXPECT_EQ(answer.get(), 2u);
}

TEST(Service, BothHooksRunInsideTheLock) {
  TracingService service;
  Thing thing;
  service.AddListener(&thing);
  EXPECT_EQ(service.trace, (std::vector<std::string>{"lock", "first", "unlock"}));
  service.trace.clear();
  service.RemoveListener(&thing);
  EXPECT_EQ(service.trace, (std::vector<std::string>{"lock", "last", "unlock"}));
}

TEST(Service, InitListenerRunsAtEveryAdditionThatLeavesOneListener) {
  CountingService service;
  Thing one, two;
  service.AddListener(&one);
  service.AddListener(&one);
  EXPECT_EQ(service.first, 2);
  service.AddListener(&two);
  EXPECT_EQ(service.first, 2);
}

TEST(Service, ExitListenerRunsAtEveryRemovalThatLeavesNone) {
  CountingService service;
  Thing one, two, absent;
  service.RemoveListener(&absent);
  EXPECT_EQ(service.last, 1);
  service.AddListener(&one);
  service.AddListener(&two);
  service.RemoveListener(&one);
  EXPECT_EQ(service.last, 1);
  service.RemoveListener(&two);
  EXPECT_EQ(service.last, 2);
}

}  // namespace
