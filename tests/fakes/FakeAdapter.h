#ifndef TESTS_FAKES_FAKEADAPTER_H
#define TESTS_FAKES_FAKEADAPTER_H

#include <string>

#include <bt_fakes.h>

#include "glib/Owned.h"
#include "glib/OwnedBus.h"

namespace fakes {

/// An adapter as BlueZ shows it, on the bus as long as this lives.
class FakeAdapter {
 public:
  /// It appears as /org/bluez/NAME. The manager must outlive this.
  FakeAdapter(GDBusObjectManagerServer* manager, const std::string& name, const std::string& address,
              bool powered);
  ~FakeAdapter();
  FakeAdapter(const FakeAdapter&) = delete;
  FakeAdapter& operator=(const FakeAdapter&) = delete;

  /// Sets a property. Throws std::invalid_argument if there is none of this name and type.
  void Change(const std::string& property, GVariant* value);

 private:
  static void OnPowered(FakesAdapter1* adapter, GParamSpec* spec, gpointer self);

  GDBusObjectManagerServer* m_manager;
  const std::string m_path;
  OwnedObject<FakesAdapter1> m_adapter;
};

}  // namespace fakes

#endif
