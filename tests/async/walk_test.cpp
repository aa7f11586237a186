// A random walk over making, using and destroying everything, at any moment, also inside callbacks: over the
// bus, and with a fake service. The seed is printed; BTTEST_WALK_SEED walks with another one,
// BTTEST_WALK_STEPS for longer.

#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <btasync/Coroutine.h>
#include <btasync/Mirror.h>
#include <btasync/Outcome.h>
#include <btasync/testing/FakeService.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/LogCapture.h"
#include "tests/async/AsyncFixture.h"

namespace {

using namespace btasync;
using namespace std::chrono_literals;
using testing::Each;
using testing::HasSubstr;

/// What a walk needs of its surroundings.
class World {
 public:
  virtual ~World() = default;
  /// Shared, because a fake one has to be destroyed as such.
  virtual std::shared_ptr<Service> MakeService() = 0;
  /// The service emits an event.
  virtual void Emit() = 0;
  /// The service comes or goes.
  virtual void ToggleService() = 0;
  /// Lets happen what is due.
  virtual void Turn() = 0;
};

class BusWorld final : public World {
 public:
  BusWorld() {
    m_recorder.SetReply("SetPower", g_variant_new("(i)", 1));
    m_recorder.Delay("SetPower", 2ms);
    m_recorder.Hang("DialCall");
  }
  std::shared_ptr<Service> MakeService() override { return std::make_shared<Service>(); }
  void Emit() override { m_recorder.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", BT_POWER_ON)); }
  void ToggleService() override {
    m_isOwned ? m_recorder.ReleaseName() : m_recorder.OwnName();
    m_isOwned = !m_isOwned;
  }
  void Turn() override { g_main_context_iteration(nullptr, FALSE); }

 private:
  bttest::BusDaemon m_bus;
  bttest::Recorder m_recorder;
  bool m_isOwned = true;
};

class FakeWorld final : public World {
 public:
  std::shared_ptr<Service> MakeService() override {
    auto service = std::make_shared<Fake>(*this);
    service->WillAccept(&Service::SetPower).After(2ms).Emits(PowerChanged{BT_POWER_ON});
    service->WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
    service->WillHang(&Service::DialCall);
    return service;
  }
  void Emit() override {
    if (!m_fakes.empty()) {
      (*m_fakes.begin())->FakeService::Emit(PowerChanged{BT_POWER_OFF});
    }
  }
  void ToggleService() override {
    m_isPresent = !m_isPresent;
    for (Fake* const fake : m_fakes) {
      fake->SetAvailability(m_isPresent ? Availability::Present : Availability::Absent);
    }
  }
  void Turn() override {
    // One that has been destroyed meanwhile is no longer in the list.
    const std::set<Fake*> fakes = m_fakes;
    for (Fake* const fake : fakes) {
      if (m_fakes.count(fake) != 0) {
        fake->Advance(1ms);
      }
    }
  }

 private:
  struct Fake final : FakeService {
    explicit Fake(FakeWorld& world) : m_world(world) { world.m_fakes.insert(this); }
    ~Fake() { m_world.m_fakes.erase(this); }
    FakeWorld& m_world;
  };

  std::set<Fake*> m_fakes;
  bool m_isPresent = true;
};

/// Makes, uses and destroys things, and keeps account of what may still call back.
class Walk {
 public:
  Walk(World& world, unsigned seed) : m_world(world), m_random(seed) {}

  void Run(int steps) {
    for (int i = 0; i < steps; ++i) {
      Act();
      if (Chance(2)) {
        m_world.Turn();
      }
    }
    // Who still can be answered is.
    EXPECT_TRUE(bttest::WaitUntil([this] {
      m_world.Turn();
      return m_pending.empty();
    })) << m_pending.size();
    m_requests.clear();
    m_calls.clear();
    m_timers.clear();
    m_mirrors.clear();
    while (!m_scopes.empty()) {
      DestroyScope();
    }
    while (!m_services.empty()) {
      DestroyService();
    }
    EXPECT_EQ(m_jobs, 0) << "coroutines that nobody holds";
    std::cout << m_completed.size() << " completions, " << m_callbacks << " callbacks, " << m_waits
              << " times a coroutine has waited" << std::endl;
    EXPECT_GT(m_completed.size(), 0u);
    EXPECT_GT(m_callbacks, m_completed.size());
    EXPECT_GT(m_waits, 0u);
    for (int i = 0; i < kLastTurns; ++i) {
      m_world.Turn();
    }
  }

 private:
  static constexpr int kLastTurns = 200;
  static constexpr std::size_t kMost = 6;  ///< of a kind
  static constexpr int kDeepest = 3;       ///< callbacks that act, one in the other

  /// A scope, and how often it has been cleared: what it held before does not run any more.
  struct NumberedScope {
    int number = 0;
    Scope scope;
  };
  struct NumberedService {
    int number = 0;
    std::shared_ptr<Service> service;
  };
  /// Something that has to end exactly once, if its scope and its service stay.
  struct Pending {
    int scope;
    int service;
  };
  /// Nothing calls back meanwhile.
  class Calling {
   public:
    explicit Calling(Walk& walk) : m_walk(walk) { ++m_walk.m_inCall; }
    ~Calling() { --m_walk.m_inCall; }

   private:
    Walk& m_walk;
  };
  struct JobCount {
    explicit JobCount(Walk& walk) : walk(walk) { ++walk.m_jobs; }
    ~JobCount() { --walk.m_jobs; }
    Walk& walk;
  };

  unsigned Random(std::size_t below) { return static_cast<unsigned>(m_random() % below); }
  bool Chance(unsigned of) { return Random(of) == 0; }

  template <typename T>
  T* Any(std::vector<std::unique_ptr<T>>& things) {
    return things.empty() ? nullptr : things[Random(things.size())].get();
  }
  template <typename T>
  std::unique_ptr<T> TakeAny(std::vector<std::unique_ptr<T>>& things) {
    if (things.empty()) {
      return nullptr;
    }
    std::swap(things[Random(things.size())], things.back());
    std::unique_ptr<T> taken = std::move(things.back());
    things.pop_back();
    return taken;
  }

  void Forget(int Pending::*whose, int number) {
    for (auto pending = m_pending.begin(); pending != m_pending.end();) {
      pending = pending->second.*whose == number ? m_pending.erase(pending) : std::next(pending);
    }
  }

  /// Inside a callback of what a scope holds.
  void Callback(int scope) {
    ++m_callbacks;
    EXPECT_EQ(m_inCall, 0) << "inside the calling function";
    EXPECT_EQ(m_living.count(scope), 1u) << "after its scope";
    ActInCallback();
  }
  void ActInCallback() {
    if (m_depth < kDeepest) {
      ++m_depth;
      for (unsigned i = Random(3); i > 0; --i) {
        Act();
      }
      --m_depth;
      if (Chance(10)) {
        throw std::runtime_error("thrown by the walk");
      }
    }
  }

  void DestroyScope() {
    const std::unique_ptr<NumberedScope> scope = TakeAny(m_scopes);
    if (scope != nullptr) {
      Forget(&Pending::scope, scope->number);
      m_living.erase(scope->number);
      const Calling calling(*this);
      scope->scope.Clear();
    }
  }
  void DestroyService() {
    const std::unique_ptr<NumberedService> service = TakeAny(m_services);
    if (service != nullptr) {
      Forget(&Pending::service, service->number);
      const Calling calling(*this);
      service->service.reset();
    }
  }
  void ClearScope(NumberedScope& scope) {
    Forget(&Pending::scope, scope.number);
    m_living.erase(scope.number);
    m_living.insert(scope.number = ++m_lastNumber);
    const Calling calling(*this);
    scope.scope.Clear();
  }

  template <typename T>
  void Send(Request<T> request, NumberedScope& scope, const NumberedService* service) {
    const unsigned way = Random(4);
    if (way == 1) {
      std::move(request).Send();
      return;
    }
    Request<T> bounded = std::move(request).Within(way == 0 ? 0ms : std::chrono::milliseconds(Random(20)));
    const int number = ++m_lastNumber;
    const int held = scope.number;
    if (service != nullptr) {
      m_pending[number] = {held, service->number};
    }
    auto call = std::make_unique<Call>(
        std::move(bounded).Then(scope.scope, [this, number, held, isOf = service != nullptr](Answer<T>) {
          EXPECT_EQ(m_completed.insert(number).second, true) << "a second time";
          EXPECT_EQ(m_pending.erase(number), isOf ? 1u : 0u) << "after its scope or service";
          Callback(held);
        }));
    if (m_calls.size() < kMost) {
      m_calls.push_back(std::move(call));
    }
  }
  Request<> MakeOrder(Service& service) {
    switch (Random(3)) {
      case 0:
        return service.SetPower(true);
      case 1:
        return service.DialCall("110");  // is never answered
      default:
        return service.DialCall(Text(nullptr));
    }
  }

  /// An order, and the event that ends it. Nobody holds it if it is sent without waiting.
  Outcome<PowerChanged> MakeOutcome(Service& service) {
    if (Chance(2)) {
      return SwitchPower(service, true);
    }
    return Follow<PowerChanged>(service, MakeOrder(service), [this](const PowerChanged& event) {
      EXPECT_EQ(m_inCall, 0) << "inside the calling function";
      ++m_callbacks;
      ActInCallback();
      return event.status == BT_POWER_ON ? Verdict::Reached : Verdict::Missed;
    });
  }

  /// Waits for this and that, as long as the scope that holds it lives.
  Job Wander(int held, unsigned times) {
    const JobCount count(*this);
    while (times-- > 0) {
      ActInCallback();
      if (m_services.empty()) {
        break;
      }
      Service& service = *Any(m_services)->service;
      switch (Random(5)) {
        case 0:
          static_cast<void>(co_await service.GetPowerStatus());
          break;
        case 3:
          static_cast<void>(co_await MakeOutcome(service).Within(3ms));
          break;
        case 1:
          static_cast<void>(co_await MakeOrder(service).Within(3ms));
          break;
        case 2:
          co_await Sleep(service, std::chrono::milliseconds(Random(3)));
          break;
        default:
          co_await Next<PowerChanged>(service, [this, held](const PowerChanged&) {
            Callback(held);
            return true;
          });
      }
      ++m_waits;
      EXPECT_EQ(m_inCall, 0) << "inside the calling function";
      EXPECT_EQ(m_living.count(held), 1u) << "after its scope";
    }
  }

  void Act() {
    NumberedScope* const scope = Any(m_scopes);
    const NumberedService* const service = Any(m_services);
    Calling calling(*this);
    switch (Random(20)) {
      case 0:
      case 1:
        if (m_scopes.size() < kMost) {
          m_scopes.push_back(std::make_unique<NumberedScope>());
          m_living.insert(m_scopes.back()->number = ++m_lastNumber);
        }
        break;
      case 2:
        DestroyScope();
        break;
      case 3:
        if (scope != nullptr) {
          ClearScope(*scope);
        }
        break;
      case 4:
      case 5:
        if (m_services.size() < kMost) {
          m_services.push_back(std::make_unique<NumberedService>());
          m_services.back()->number = ++m_lastNumber;
          m_services.back()->service = m_world.MakeService();
        }
        break;
      case 6:
        DestroyService();
        break;
      case 7:
        if (Call* const call = Any(m_calls)) {
          call->Cancel();
        }
        break;
      case 8:
        TakeAny(m_calls);
        break;
      case 9:
        m_world.Emit();
        break;
      case 10:
        if (Chance(4)) {
          m_world.ToggleService();
        }
        break;
      case 11:
        if (Chance(2)) {
          TakeAny(m_timers);
        } else {
          TakeAny(m_mirrors);
        }
        break;
      case 12:
        if (scope != nullptr && !m_requests.empty()) {
          Send(std::move(*TakeAny(m_requests)), *scope, nullptr);  // its service may be gone
        }
        break;
      default:
        if (scope != nullptr && service != nullptr) {
          Use(*scope, *service);
        }
    }
  }

  void Use(NumberedScope& scope, const NumberedService& numbered) {
    Service& service = *numbered.service;
    const int held = scope.number;
    switch (Random(11)) {
      case 10:
        Send(MakeOutcome(service), scope, &numbered);
        break;
      case 9:
        if (m_mirrors.size() < kMost) {
          m_mirrors.push_back(std::make_unique<Mirror>(
              service, Chance(2) ? ~0U : PART_CALLS, [this](const State&, unsigned parts) {
                EXPECT_EQ(m_inCall, 0) << "inside the calling function";
                EXPECT_NE(parts, 0u);
                ActInCallback();
              }));
        }
        break;
      case 0:
        service.On<PowerChanged>(scope.scope, [this, held](const PowerChanged&) { Callback(held); });
        break;
      case 1:
        service.OnAvailability(scope.scope, [this, held](Availability) { Callback(held); });
        break;
      case 2:
        if (m_requests.size() < kMost) {
          m_requests.push_back(std::make_unique<Request<>>(MakeOrder(service)));
        }
        break;
      case 3:
        if (m_timers.size() < kMost) {
          m_timers.push_back(std::make_unique<Timer>(service));
          m_timers.back()->Start(std::chrono::milliseconds(Random(3)), [this] {
            EXPECT_EQ(m_inCall, 0) << "inside the calling function";
            ActInCallback();
          });
        }
        break;
      case 4:
      case 5:
        Wander(held, Random(6)).StartIn(scope.scope);
        break;
      case 6:
        Send(service.GetPowerStatus(), scope, &numbered);
        break;
      default:
        Send(MakeOrder(service), scope, &numbered);
    }
  }

  World& m_world;
  std::mt19937 m_random;
  int m_lastNumber = 0;
  int m_inCall = 0;
  int m_depth = 0;
  int m_jobs = 0;
  std::size_t m_callbacks = 0;
  std::size_t m_waits = 0;
  std::set<int> m_living;  ///< scopes
  std::map<int, Pending> m_pending;
  std::set<int> m_completed;
  std::vector<std::unique_ptr<NumberedService>> m_services;
  std::vector<std::unique_ptr<Request<>>> m_requests;
  std::vector<std::unique_ptr<Call>> m_calls;
  std::vector<std::unique_ptr<Timer>> m_timers;
  std::vector<std::unique_ptr<Mirror>> m_mirrors;
  std::vector<std::unique_ptr<NumberedScope>> m_scopes;
};

template <typename World>
void WalkThrough(int steps) {
  std::vector<unsigned> seeds{1, 2, 3, std::random_device()()};
  if (const char* const seed = std::getenv("BTTEST_WALK_SEED")) {
    seeds = {static_cast<unsigned>(std::strtoul(seed, nullptr, 10))};
  }
  if (const char* const given = std::getenv("BTTEST_WALK_STEPS")) {
    steps = std::atoi(given);
  }
  bttest::LogCapture log;
  for (const unsigned seed : seeds) {
    SCOPED_TRACE("BTTEST_WALK_SEED=" + std::to_string(seed));
    std::cout << "seed " << seed << std::endl;
    World world;
    Walk(world, seed).Run(steps);
  }
  EXPECT_THAT(log.Complaints(), Each(HasSubstr("thrown by the walk")));
}

TEST(WalkTest, OverTheBus) { WalkThrough<BusWorld>(2000); }

TEST(WalkTest, WithAFakeService) { WalkThrough<FakeWorld>(10000); }

}  // namespace
