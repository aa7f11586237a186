#include "service/simulation/SimulationProvider.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "protocol/BusNames.h"
#include "service/app/ExitCodes.h"
#include "service/simulation/Stage.h"

namespace btservice {
namespace {

constexpr double kLowestSpeed = 0.001;
constexpr double kHighestSpeed = 100000;

}  // namespace

SimulationProvider::SimulationProvider()
    : m_outside(bluetooth_sim_outside_skeleton_new()), m_faults(bluetooth_sim_faults_skeleton_new()) {}

std::string SimulationProvider::Summary() const {
  return "Simulates the Bluetooth service of a head unit on the session bus, under the name\n"
         "com.zelk.linux.bluetooth: an adapter, phones to find, pair and connect, calls, music.";
}

std::string SimulationProvider::Description() const {
  std::string worlds;
  for (const std::string& name : ShippedWorlds()) {
    worlds += (worlds.empty() ? "" : ", ") + name;
  }
  return "A world is a JSON file with devices and what happens to them, or one of the shipped ones:\n" +
         (worlds.empty() ? "none is found here" : worlds) +
         ".\n"
         "These are in share/libbt/worlds beside the folder of this program, or where the\n"
         "environment variable BTSERVICE_WORLDS says. Without one there are two phones and a serial\n"
         "accessory. A bad world ends the program with exit code 5. What happens in the world can be\n"
         "driven on the object /com/zelk/linux/bluetooth/sim.\n"
         "\n";
}

std::vector<GOptionEntry> SimulationProvider::Options() {
  return {
      {"world", 'w', 0, G_OPTION_ARG_FILENAME, m_worldName.Out(), "Begin in this world", "NAME|FILE"},
      {"speed", 's', 0, G_OPTION_ARG_DOUBLE, &m_speed, "Run time N times as fast", "N"},
      {"world-schema", 0, 0, G_OPTION_ARG_NONE, &m_showSchema, "Show the JSON Schema of worlds", nullptr}};
}

std::string SimulationProvider::OptionGiven() const {
  if (m_worldName != nullptr) {
    return "--world";
  }
  if (m_showSchema != FALSE) {
    return "--world-schema";
  }
  return m_speed != 1 ? "--speed" : "";
}

std::optional<int> SimulationProvider::Check() {
  if (m_showSchema != FALSE) {
    std::fputs(WorldSchema().c_str(), stdout);
    return EXIT_ENDED;
  }
  if (!std::isfinite(m_speed) || m_speed < kLowestSpeed || m_speed > kHighestSpeed) {
    return FailUsage("the speed is a number from 0.001 to 100000");
  }
  return std::nullopt;
}

std::optional<int> SimulationProvider::Prepare() {
  const std::string name = m_worldName != nullptr ? m_worldName.get() : "";
  try {
    m_file = name.empty() ? WorldFile{BuiltInWorld(), {}} : LoadWorld(name);
  } catch (const std::runtime_error& problem) {
    std::fprintf(stderr, "btservice: %s\n", problem.what());
    return EXIT_BAD_WORLD;
  }
  return std::nullopt;
}

bool SimulationProvider::Export(ServiceBus& bus) {
  return bus.Export(m_outside.Base(), kControlPath) && bus.Export(m_faults.Base(), kControlPath);
}

ProvidedStack SimulationProvider::MakeStack(const ServiceParts& parts, const StackStart& start) {
  auto stage = std::make_unique<Stage>(parts, std::move(m_file), start, m_speed,
                                       ControlObjects{m_outside.Get(), m_faults.Get()});
  AnswerGate* const gate = &stage->Gate();
  return {std::move(stage), gate};
}

}  // namespace btservice
