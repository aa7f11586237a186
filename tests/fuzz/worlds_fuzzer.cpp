// libFuzzer target: any bytes as a world file. They are a world, or are refused with file and line.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/FuzzCheck.h"
#include "protocol/Address.h"
#include "service/files/JsonNode.h"
#include "service/simulation/world/WorldFields.h"
#include "service/simulation/world/WorldFile.h"

namespace {

using bttest::Check;

void CheckWorld(const btservice::WorldSource& source) {
  for (const btservice::DeviceSource& device : source.devices) {
    Check(IsBluetoothAddress(device.device.address), "a device has an address");
    Check(device.phoneBook.generate >= 0 && device.phoneBook.generate <= 100000, "a number is in its bounds");
  }
  for (const btservice::Happening& happening : source.timeline) {
    Check(happening.at.count() >= 0 && happening.every.count() >= 0, "no time is negative");
    Check(IsBluetoothAddress(happening.device), "what happens happens to a device");
  }
}

void CheckRefusal(const std::string& problem) {
  const std::string begin = "world.json:";
  Check(problem.rfind(begin, 0) == 0, "a refusal begins with the file");
  Check(std::atoi(problem.c_str() + begin.size()) > 0, "and with the line");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    CheckWorld(btservice::ParseWorld(text, "world.json"));
  } catch (const btservice::FileError& refusal) {
    CheckRefusal(refusal.what());
  }
  return 0;
}
