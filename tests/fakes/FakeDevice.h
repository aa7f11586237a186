#ifndef TESTS_FAKES_FAKEDEVICE_H
#define TESTS_FAKES_FAKEDEVICE_H

#include <string>

#include <bt_fakes.h>

#include "glib/Owned.h"

namespace fakes {

/// A device that an adapter has found, as BlueZ shows it: on the bus as long as this lives.
class FakeDevice {
 public:
  /// name: empty if it is not known. The manager must outlive this.
  FakeDevice(GDBusObjectManagerServer* manager, const std::string& adapterPath, const std::string& address,
             const std::string& name);
  ~FakeDevice();
  FakeDevice(const FakeDevice&) = delete;
  FakeDevice& operator=(const FakeDevice&) = delete;

  const std::string& Path() const { return m_path; }
  /// It is heard of again: its strength is another.
  void Hear();
  void SetName(const std::string& name);
  void SetPaired(bool paired);
  bool IsPaired() const { return fakes_device1_get_paired(m_device.get()) != FALSE; }

 private:
  GDBusObjectManagerServer* m_manager;
  const std::string m_path;
  OwnedObject<FakesDevice1> m_device;
};

}  // namespace fakes

#endif
