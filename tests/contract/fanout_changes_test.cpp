// Listeners that come and go during an event, and a library that is stopped during one.

#include <algorithm>
#include <array>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/MWPBluetooth.h>

#include "libbluetooth/MWPBtClient.h"
#include "support/Waiting.h"

namespace bttest {
namespace {

using Action = std::function<void()>;

/// Places for listeners in ascending order of addresses, numbered from 0.
class Places {
 public:
  static constexpr int kCount = 7;

  /// Constructs a listener in a place. Inside its callback it does what action says.
  void Put(int place, Action action = {}) { m_places[place].emplace(*this, place, std::move(action)); }
  /// Destroys the listener in a place, if there is one.
  void Clear(int place) { m_places[place].reset(); }
  bool Holds(int place) const { return m_places[place].has_value(); }
  /// The places that hold a listener.
  std::vector<int> Held() const {
    std::vector<int> held;
    for (int place = 0; place < kCount; ++place) {
      if (Holds(place)) {
        held.push_back(place);
      }
    }
    return held;
  }

  /// The places whose listeners were called, in order.
  std::vector<int> called;

 private:
  class Listener : public IMWPBtPhoneListener {
   public:
    Listener(Places& places, int place, Action action)
        : m_places(places), m_place(place), m_action(std::move(action)) {}

    void OnHangupCallChanged() override {
      const Action action = m_action;  // this may be gone before the action is over
      m_places.called.push_back(m_place);
      if (action) {
        action();
      }
    }

   private:
    Places& m_places;
    const int m_place;
    const Action m_action;
  };

  std::array<std::optional<Listener>, kCount> m_places;
};

using Order = std::vector<int>;

class Changes : public testing::Test {
 protected:
  ~Changes() override { MWP_DestroyBlueTooth(); }

  /// The places whose listeners are called by one event.
  Order Hangup() {
    places.called.clear();
    MWPSingleton<MWPBtClient>::GetInstance()->OnHangupCallChanged();
    return places.called;
  }

  Places places;
};

TEST_F(Changes, AListenerThatDestroysItselfIsCalledOnceAndTheOthersAsWell) {
  for (const int self : {0, 2, 4}) {
    for (const int place : {4, 0, 2}) {
      places.Put(place);
    }
    places.Put(self, [&] { places.Clear(self); });
    EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
    EXPECT_EQ(Hangup().size(), 2u);
  }
}

/// Lives on the heap, where a touch after its end is noticed by the sanitizer.
class SelfDeleting : public IMWPBtPhoneListener {
 public:
  explicit SelfDeleting(int& calls) : m_calls(calls) {}
  void OnHangupCallChanged() override {
    ++m_calls;
    delete this;
  }

 private:
  int& m_calls;
};

TEST_F(Changes, AListenerThatDeletesItselfIsNotTouchedAgain) {
  int calls = 0;
  for (int i = 0; i < 10; ++i) {
    new SelfDeleting(calls);
  }
  Hangup();
  EXPECT_EQ(calls, 10);
  Hangup();
  EXPECT_EQ(calls, 10);
}

TEST_F(Changes, TheNextOneDestroyedIsNotCalled) {
  places.Put(0, [&] { places.Clear(2); });
  places.Put(2);
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 4}));
}

TEST_F(Changes, ThePreviousOneDestroyedChangesNothingForTheRest) {
  places.Put(0);
  places.Put(2, [&] { places.Clear(0); });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
  EXPECT_EQ(Hangup(), (Order{2, 4}));
}

TEST_F(Changes, AllOthersDestroyedAreNotCalled) {
  const auto clearOthers = [&](int self) {
    for (int place = 0; place < Places::kCount; ++place) {
      if (place != self) {
        places.Clear(place);
      }
    }
  };
  places.Put(0);
  places.Put(2, [&] { clearOthers(2); });
  places.Put(3);
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2}));
  EXPECT_EQ(Hangup(), (Order{2}));
}

TEST_F(Changes, AllDestroyedEndsTheWalk) {
  places.Put(0, [&] {
    for (const int place : {0, 1, 2}) {
      places.Clear(place);
    }
  });
  places.Put(1);
  places.Put(2);
  EXPECT_EQ(Hangup(), (Order{0}));
  EXPECT_EQ(Hangup(), Order());
}

TEST_F(Changes, ANewOneWithAHigherAddressIsCalledInItsTurn) {
  places.Put(0);
  places.Put(2, [&] { places.Put(3); });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2, 3, 4}));
}

TEST_F(Changes, ANewOneBehindTheLastIsCalled) {
  places.Put(0, [&] { places.Put(6); });
  EXPECT_EQ(Hangup(), (Order{0, 6}));
}

TEST_F(Changes, ANewOneWithALowerAddressIsCalledFromTheNextEventOn) {
  places.Put(2, [&] { places.Put(1); });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{2, 4}));
  EXPECT_EQ(Hangup(), (Order{1, 2, 4}));
}

TEST_F(Changes, ANewOneAtTheAddressOfTheOneBeingCalledIsCalledFromTheNextEventOn) {
  places.Put(0);
  places.Put(2, [&] {
    places.Clear(2);
    places.Put(2);
  });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
  EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
}

TEST_F(Changes, ANewOneAtTheAddressOfTheNextIsCalledOnce) {
  places.Put(0, [&] {
    places.Clear(2);
    places.Put(2);
  });
  places.Put(2, [] { ADD_FAILURE() << "the one that is gone is called"; });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
}

TEST_F(Changes, ListenersOfOtherKindsMayComeAndGoAsWell) {
  auto goes = std::make_unique<IMWPBtMediaListener>();
  std::unique_ptr<IMWPBtMediaListener> comes;
  places.Put(0, [&] {
    goes.reset();
    comes = std::make_unique<IMWPBtMediaListener>();
  });
  places.Put(2);
  EXPECT_EQ(Hangup(), (Order{0, 2}));
}

TEST_F(Changes, OfAnySortLeaveEachListenerThatStaysCalledOnceAndInOrder) {
  std::mt19937 random(20240229);
  const auto anyPlace = [&] { return static_cast<int>(random() % Places::kCount); };
  std::set<int> changed;
  const Action change = [&] {
    for (unsigned changes = random() % 4; changes > 0; --changes) {
      const int place = anyPlace();
      changed.insert(place);
      if (places.Holds(place)) {
        places.Clear(place);
      } else {
        places.Put(place, change);
      }
    }
  };
  for (int round = 0; round < 2000; ++round) {
    change();
    const Order before = places.Held();
    changed.clear();
    const Order order = Hangup();
    // Strictly ascending, and so without repetition.
    EXPECT_EQ(std::adjacent_find(order.begin(), order.end(), std::greater_equal<>()), order.end());
    for (const int place : before) {
      const bool isCalled = std::count(order.begin(), order.end(), place) == 1;
      EXPECT_TRUE(isCalled || changed.count(place) == 1) << place;
    }
  }
}

TEST_F(Changes, AListenerThatStopsTheLibraryIsTheLastOneCalled) {
  places.Put(0);
  places.Put(2, [] { MWP_DestroyBlueTooth(); });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2}));
  EXPECT_EQ(MWPSingleton<MWPBtClient>::ms_pSingleton, nullptr);
}

TEST_F(Changes, AListenerMayStopTheLibraryAndThrow) {
  places.Put(0, [] {
    MWP_DestroyBlueTooth();
    throw std::runtime_error("enough");
  });
  places.Put(2);
  EXPECT_EQ(Hangup(), (Order{0}));
}

TEST_F(Changes, AListenerThatStopsTheLibraryMayRegisterAnotherWithTheNextClient) {
  places.Put(0, [&] {
    MWP_DestroyBlueTooth();
    places.Put(4);
  });
  places.Put(2);
  EXPECT_EQ(Hangup(), (Order{0}));
  EXPECT_EQ(Hangup(), (Order{4}));
}

// Clients other than the one whose event it is

/// A client of the process's own, made and deleted.
void MakeAndDeleteAnotherClient() { const MWPBtClient another; }

/// Whether another thread can lock the registry of the library's client.
bool RegistryIsFree() {
  MWPBtClient* const client = MWPSingleton<MWPBtClient>::GetInstance();
  auto done = std::make_shared<std::promise<void>>();
  std::future<void> isDone = done->get_future();
  // Left alone if the lock is never free: the test fails then.
  std::thread([client, done] {
    client->LockListener();
    client->UnlockListener();
    done->set_value();
  }).detach();
  return isDone.wait_for(kBound) == std::future_status::ready;
}

TEST_F(Changes, AnotherClientDeletedInACallbackEndsNoWalkAndLeavesNoLock) {
  places.Put(0);
  places.Put(2, MakeAndDeleteAnotherClient);
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
  EXPECT_TRUE(RegistryIsFree());
}

TEST_F(Changes, AnotherClientDeletedOnAnotherThreadEndsNoWalkAndLeavesNoLock) {
  places.Put(0);
  places.Put(2, [] { std::thread(MakeAndDeleteAnotherClient).join(); });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 2, 4}));
  EXPECT_TRUE(RegistryIsFree());
}

TEST_F(Changes, ALibraryStoppedAndStartedAnewInACallbackEndsTheWalkAndLeavesTheNextClientFree) {
  places.Put(2);
  places.Put(4);
  places.Put(0, [&] {
    MWP_DestroyBlueTooth();
    places.Put(3);  // with the next client, which may well lie where the first one did
    EXPECT_EQ(Hangup(), (Order{3})) << "an event of the next client, inside the callback";
  });
  MWPSingleton<MWPBtClient>::GetInstance()->OnHangupCallChanged();
  EXPECT_EQ(places.called, (Order{3})) << "nobody is called after it";
  EXPECT_TRUE(RegistryIsFree());
  EXPECT_EQ(Hangup(), (Order{3}));
}

TEST_F(Changes, AnEventInsideAnEventGoesToAllAndTheOuterOneGoesOn) {
  places.Put(0, [&] {
    if (places.called.size() == 1) {
      MWPSingleton<MWPBtClient>::GetInstance()->OnHangupCallChanged();
    }
  });
  places.Put(2);
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 0, 2, 4, 2, 4}));
}

TEST_F(Changes, AnEventInsideAnEventIsEndedWithItsClientAndTheOuterOneToo) {
  places.Put(0, [&] {
    if (places.called.size() == 1) {
      MWPSingleton<MWPBtClient>::GetInstance()->OnHangupCallChanged();
    }
  });
  places.Put(2, [] { MWP_DestroyBlueTooth(); });
  places.Put(4);
  EXPECT_EQ(Hangup(), (Order{0, 0, 2}));
}

}  // namespace
}  // namespace bttest
