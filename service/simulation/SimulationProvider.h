#ifndef SERVICE_SIMULATION_SIMULATIONPROVIDER_H
#define SERVICE_SIMULATION_SIMULATIONPROVIDER_H

#include <string>

#include <bt_sim.h>

#include "glib/Owned.h"
#include "service/app/Exported.h"
#include "service/app/StackProvider.h"
#include "service/simulation/world/WorldFile.h"

namespace btservice {

/// The simulation: a stack whose world comes from a file, and the controls of that world on the bus.
class SimulationProvider : public StackProvider {
 public:
  SimulationProvider();

  std::string Summary() const override;
  std::string Description() const override;
  std::vector<GOptionEntry> Options() override;
  std::string OptionGiven() const override;
  std::optional<int> Check() override;
  std::optional<int> Prepare() override;

  double Speed() const override { return m_speed; }
  bool Export(ServiceBus& bus) override;
  ProvidedStack MakeStack(const ServiceParts& parts, const StackStart& start) override;

 private:
  // The options.
  double m_speed = 1;
  OwnedText m_worldName;  ///< of a shipped world, or a file; null or empty: the built-in one
  gboolean m_showSchema = FALSE;

  WorldFile m_file;
  Exported<BluetoothSimOutside> m_outside;
  Exported<BluetoothSimFaults> m_faults;
};

}  // namespace btservice

#endif
