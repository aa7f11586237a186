#ifndef TESTS_CONFORMANCE_CAR_H
#define TESTS_CONFORMANCE_CAR_H

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>

#include "contract/RecordingListeners.h"
#include "support/BusDaemon.h"
#include "support/ChildProcess.h"
#include "tests/conformance/Patience.h"
#include "tests/conformance/Phone.h"

namespace conformance {

using namespace MWPBtType;

/// A head unit: the service, and an application that knows nothing but the library. The service is the
/// command BTCONFORMANCE_SERVICE, words apart by blanks, or the simulation.
class Car {
 public:
  /// Begins to live: the service is there, and the library reaches it. Without a service to start it has
  /// none.
  Car();
  static bool HasService();
  ~Car();

  void StartService();
  /// Ends the service in good order; its exit status.
  int EndService();
  void KillService();

  /// Starts the application, or the next one, which knows nothing of the one before.
  void StartApplication();
  void EndApplication();

  /// Has the phone paired and connected with all that it can, and its phone book downloaded.
  void ConnectPhone();

  /// What the last pairing asked for; it wants to be answered with the same.
  PairRequestState AskedState() const;

  /// Forgets the events up to now.
  void Forget();
  /// Whether an event comes, or has come since they were forgotten. With values: one that begins with these.
  bool Hears(const std::string& event, const std::vector<std::string>& values = {});
  bool HasHeard(const std::string& event, const std::vector<std::string>& values = {}) const;

  MWPBtCom com;
  MWPBtPhone calls;
  MWPBtMedia music;
  MWPBtPbap book;
  MWPBtMessage messages;
  MWPBtSpp serial;

 private:
  void PairPhone();
  /// The values of the last event of this name; null if there was none.
  const std::vector<std::string>* LastOf(const std::string& event) const;

  bttest::BusDaemon m_bus;
  std::unique_ptr<bttest::ChildProcess> m_service;
  bttest::Receptions m_events;
  std::unique_ptr<bttest::ListenerOfEachKind> m_listeners;
};

/// A test with a car and a phone. Without a service to test there is nothing to run.
class ConformanceTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!Car::HasService()) {
      GTEST_SKIP() << "BTCONFORMANCE_SERVICE names no service, and the simulation is not built";
    }
  }

  Car car;
  Phone phone;
};

/// Leaves out a test that needs what the phone here cannot do.
#define CONFORMANCE_NEEDS(verb)                                       \
  if (!phone.Can(verb)) {                                             \
    ASSERT_FALSE(phone.IsTheSimulations()) << "it has no " << (verb); \
    GTEST_SKIP() << "the phone here cannot do: " << (verb);           \
  }                                                                   \
  static_assert(true, "a semicolon follows")

}  // namespace conformance

#endif
