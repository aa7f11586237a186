#ifndef TESTS_SYSTEM_FIXTURES_H
#define TESTS_SYSTEM_FIXTURES_H

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/MWPBluetooth.h>

#include "ipc/BtProxy.h"
#include "libbluetooth/MWPBtClient.h"
#include "support/BusDaemon.h"
#include "support/LogCapture.h"
#include "support/MainLoop.h"
#include "support/Recorder.h"
#include "support/Segments.h"

namespace bttest {

using Client = MWPSingleton<MWPBtClient>;

/// A bus without the service.
struct WithBus : testing::Test {
  // As on a system that has been up for a while, no segment has one of the smallest identifiers: a client
  // that is destroyed would remove it, mistaking the id for the identifier.
  WithBus() { MakeDummySegments(); }

  BusDaemon bus;
};

/// A bus and, as a second process, a service that records.
struct WithService : WithBus {
  Recorder service;
};

/// The library, started, with such a service.
struct Started : WithService {
  Started() {
    if (MWP_CreateBlueTooth() == 0) {
      throw std::runtime_error("the library does not start");
    }
  }
};

/// Notes the power status of every OnOpenBtStatusChanged: the event by which these tests see that events
/// arrive.
class PowerEvents : public IMWPBtComListener {
 public:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus status) override { m_seen.push_back(status); }
  const std::vector<int>& Seen() const { return m_seen; }

 private:
  std::vector<int> m_seen;
};

/// Sends that event; it is on its way when this returns.
inline void EmitPower(Recorder& service, int status) {
  service.Emit("OnOpenBtStatusChanged", g_variant_new("(y)", static_cast<guchar>(status)));
}

/// Both flags, which change together, as one number; -1 if they differ.
inline int Flags() {
  return MWPBtClient::m_bInitClient == MWPBtClient::m_bServiceReady ? MWPBtClient::m_bInitClient : -1;
}

}  // namespace bttest

#endif
