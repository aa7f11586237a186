#ifndef TESTS_FAKES_FAKEBLUEZ_H
#define TESTS_FAKES_FAKEBLUEZ_H

#include <map>
#include <memory>
#include <string>

#include <bt_fakes.h>

#include "fakes/AnswerRules.h"
#include "fakes/FakeAdapter.h"

namespace fakes {

/// BlueZ's daemon as a test wants it: its objects at "/", and how the test drives it. test.FakeBluez.xml says
/// what the controls mean.
class FakeBluez {
 public:
  explicit FakeBluez(GDBusConnection* connection);
  ~FakeBluez();
  FakeBluez(const FakeBluez&) = delete;
  FakeBluez& operator=(const FakeBluez&) = delete;

 private:
  FakeAdapter& Adapter(const std::string& name);
  /// Of whichever adapter. Throws std::invalid_argument if none has found it.
  FakeDevice& Device(const std::string& address);
  void Inquire();
  void BindAdapterControls();
  void BindDeviceControls();
  void BindAnswerControls();

  OwnedObject<GDBusConnection> m_connection;
  AnswerRules m_rules;
  OwnedObject<GDBusObjectManagerServer> m_manager;
  OwnedObject<FakesTestFakeBluez> m_control;
  Air m_air;
  std::map<std::string, std::unique_ptr<FakeAdapter>> m_adapters;
};

}  // namespace fakes

#endif
