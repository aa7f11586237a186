#ifndef TESTS_BLUEZ_BLUEZTEST_H
#define TESTS_BLUEZ_BLUEZTEST_H

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "service/stack/StackTypes.h"
#include "support/MainLoop.h"
#include "tests/bluez/FakeDaemons.h"
#include "tests/service/running_service.h"

namespace btservice {

constexpr const char* kAdapterAddress = "00:1B:DC:0A:0B:0C";
constexpr const char* kOff = "(byte 0x00,)";
constexpr const char* kOn = "(byte 0x01,)";

/// A system bus, where a test puts the fake daemons, and a session bus, where it starts btservice over BlueZ.
class BluezTest : public testing::Test {
 protected:
  /// Starts the daemons, and puts an adapter in.
  void StartDaemons(bool powered = false) {
    m_daemons.emplace();
    m_daemons->AddAdapter("hci0", kAdapterAddress, powered);
  }
  bttest::FakeDaemons& Daemons() { return *m_daemons; }
  void EndDaemons() { m_daemons.reset(); }

  /// Starts btservice.
  void StartService() { m_service.Start(); }
  RunningService& Service() { return m_service; }

  /// All of it, until the adapter is there and as it is to be.
  void StartWithAdapter() {
    StartDaemons();
    StartService();
    ASSERT_TRUE(PowerBecomes(kOn)) << m_service.Process().Errors();
    m_service.ForgetSignals();
  }

  std::string Power() { return m_service.Ask("GetPowerStatus"); }
  bool PowerBecomes(const std::string& answer) {
    return bttest::RunUntil([&] { return Power() == answer; });
  }
  /// Whether the request is accepted. The answer is the byte or boolean of the interface.
  bool SetPower(bool on) { return m_service.Ask("SetPower", g_variant_new("(y)", on ? 1 : 0)) == "(1,)"; }
  /// The answer as text: "('name', byte 0x01)".
  std::string AttributeText(int attribute) {
    return m_service.Ask("GetAttribute", g_variant_new("(y)", attribute));
  }
  /// Waits until the log of the service has a text.
  bool Logs(const std::string& text) {
    return bttest::RunUntil([&] { return m_service.Process().Errors().find(text) != std::string::npos; });
  }

  bttest::SystemBusDaemon m_systemBus;

 private:
  std::optional<bttest::FakeDaemons> m_daemons;
  RunningService m_service{{"--stack", "bluez", "--no-state"}, RunningService::Begin::LATER};
};

}  // namespace btservice

#endif
