#ifndef TESTS_FAKES_FAKEADAPTER_H
#define TESTS_FAKES_FAKEADAPTER_H

#include <map>
#include <memory>
#include <string>

#include <bt_fakes.h>

#include "fakes/FakeDevice.h"
#include "glib/Owned.h"

namespace fakes {

/// What is within reach of the radio: addresses, with names that may be empty.
using Air = std::map<std::string, std::string>;

/// An adapter as BlueZ shows it, on the bus as long as this lives, and the devices that it has found.
class FakeAdapter {
 public:
  /// It appears as /org/bluez/NAME. The manager and the air must outlive this.
  FakeAdapter(GDBusObjectManagerServer* manager, const Air& air, const std::string& name,
              const std::string& address, bool powered);
  ~FakeAdapter();
  FakeAdapter(const FakeAdapter&) = delete;
  FakeAdapter& operator=(const FakeAdapter&) = delete;

  /// Sets a property. Throws std::invalid_argument if there is none of this name and type.
  void Change(const std::string& property, GVariant* value);
  /// Finds what is within reach and fits the filter, if it searches: a device that it knows is heard of once
  /// more.
  void Inquire();
  /// Null if there is no such device.
  FakeDevice* Find(const std::string& address);
  /// Forgets all that are not paired.
  void ForgetDevices();
  const std::map<std::string, std::unique_ptr<FakeDevice>>& Devices() const { return m_devices; }
  /// Of the search, as it was set last: a{sv}. Null if it never was.
  GVariant* Filter() const { return m_filter.get(); }

 private:
  static void OnPowered(FakesAdapter1* adapter, GParamSpec* spec, gpointer self);
  void BindMethods();
  bool Fits(const std::string& address) const;
  bool Remove(const std::string& path);

  GDBusObjectManagerServer* m_manager;
  const Air& m_air;
  const std::string m_path;
  OwnedObject<FakesAdapter1> m_adapter;
  OwnedVariant m_filter;
  std::map<std::string, std::unique_ptr<FakeDevice>> m_devices;  ///< by their addresses
};

}  // namespace fakes

#endif
