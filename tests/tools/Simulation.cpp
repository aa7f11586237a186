#include "tools/Simulation.h"

#include <filesystem>
#include <fstream>

namespace bttest {

void WithSimulation::Start(const std::string& world, const std::string& speed) {
  service.emplace(Words{"/app/bin/btservice", "--no-state", "--world", world, "--speed", speed});
  ASSERT_TRUE(WaitUntil([&] { return RunBtctl({"power", "status"}).code == 0 || !service->IsAlive(); }));
  ASSERT_TRUE(service->IsAlive()) << service->Errors();
}

std::string WithSimulation::Output(const Words& words) {
  const Ran ran = RunBtctl(words);
  EXPECT_EQ(ran.code, 0) << words.front() << " " << words.back() << ": " << ran.errors;
  return ran.output;
}

void WithSimulation::StartWithPhone() {
  const std::filesystem::path worlds = BT_WORLDS;
  Json world = Json::parse(std::ifstream(worlds / "one-phone.json"));
  world.erase("timeline");  // however slow the machine, no call comes of itself while a test makes its own
  const std::filesystem::path quiet = folder.Path() / "one-quiet-phone.json";
  std::ofstream(quiet) << world;
  std::filesystem::copy(worlds / "one-phone.vcf", folder.Path());
  Start(quiet);
  Output({"capability", "set", "auto-download", "off", "--no-wait"});
  Output({"power", "on"});
  Output({"connect", kPhone});
  ASSERT_TRUE(WaitUntil([&] { return RunBtctl({"contacts", "download", "--timeout", "10"}).code == 0; }));
}

}  // namespace bttest
