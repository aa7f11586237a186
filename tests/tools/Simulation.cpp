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

std::string WithSimulation::Quiet(const std::string& world) {
  const std::filesystem::path worlds = BT_WORLDS;
  Json quiet = Json::parse(std::ifstream(worlds / (world + ".json")));
  quiet.erase("timeline");
  for (const char* const delay : {"ringTimeoutMs", "pairAnswerMs", "scanLengthMs"}) {
    quiet["delays"][delay] = 100000000;
  }
  for (const auto& file : std::filesystem::directory_iterator(worlds)) {
    if (file.path().extension() == ".vcf") {
      std::filesystem::copy(file, folder.Path());
    }
  }
  std::string path = folder.Path() / ("quiet-" + world + ".json");
  std::ofstream(path) << quiet;
  return path;
}

void WithSimulation::StartWithPhone() {
  Start(Quiet("one-phone"));
  Output({"capability", "set", "auto-download", "off", "--no-wait"});
  Output({"power", "on"});
  Output({"connect", kPhone});
  ASSERT_TRUE(WaitUntil([&] { return RunBtctl({"contacts", "download", "--timeout", "10"}).code == 0; }));
}

}  // namespace bttest
