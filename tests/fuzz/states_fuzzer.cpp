// libFuzzer target: any bytes as a state file. They bring the world to that state, or leave it alone, put the
// file aside and make one error.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>

#include "fuzz/FuzzCheck.h"
#include "fuzz/LogCount.h"
#include "protocol/Address.h"
#include "service/simulation/world/World.h"
#include "service/state/StateFile.h"

namespace {

using bttest::Check;

constexpr const char* kAddresses[] = {"00:1A:7D:DA:71:13", "00:02:EE:5A:10:4C"};

std::string StatePath() {
  const char* const folder = std::getenv("TMPDIR");
  return std::string(folder != nullptr ? folder : "/tmp") + "/state.json";
}

void WriteFile(const std::string& path, const std::uint8_t* data, std::size_t size) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  Check(file != nullptr, "the directory for temporary files can be written to");
  std::fwrite(data, 1, size, file);
  std::fclose(file);
}

btservice::World MakeWorld() {
  btservice::World world;
  for (const char* const address : kAddresses) {
    world.devices.emplace_back().address = address;
    world.devices.back().paired = true;
  }
  world.adapter.name = "before";
  return world;
}

void CheckWorld(const btservice::World& world) {
  bool wasPaired = true;
  std::set<std::string> addresses;
  for (const btservice::DeviceData& device : world.devices) {
    Check(IsBluetoothAddress(device.address), "a device has an address");
    Check(wasPaired || !device.paired, "those that are paired come first");
    wasPaired = device.paired;
    addresses.insert(device.address);
  }
  for (const char* const address : kAddresses) {
    Check(addresses.count(address) == 1, "the devices of the world stay in it");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = StatePath();
  static const btservice::World before = MakeWorld();
  bttest::CountErrorsFromNowOn();
  WriteFile(path, data, size);
  btservice::World world = before;
  if (const std::optional<btservice::KeptState> kept = btservice::StateFile(path).Load()) {
    btservice::Restore(*kept, world);
  }
  CheckWorld(world);
  const int errors = bttest::TakeErrors();
  Check(errors <= 1, "a file makes one error at most");
  Check(errors == 0 || world.devices.size() == before.devices.size(), "a broken file changes nothing");
  Check(errors == 0 || world.adapter.name == before.adapter.name, "a broken file changes no attribute");
  return 0;
}
