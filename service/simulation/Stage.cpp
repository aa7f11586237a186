#include "service/simulation/Stage.h"

#include <ctime>
#include <utility>

#define MWP_LOG_SOURCE "service/simulation/Stage"
#include <mwp/MWPLog.h>

namespace btservice {
namespace {

World AtStart(World world, const StackStart& start) {
  world.startTime = std::time(nullptr);
  world.settings = start.settings;
  if (start.kept) {
    Restore(*start.kept, world);
  }
  return world;
}

}  // namespace

Stage::Stage(const ServiceParts& parts, WorldFile file, const StackStart& start, double speed,
             ControlObjects controls)
    : SimulatedStack(parts.scheduler, AtStart(std::move(file.world), start)),
      m_happenings(std::move(file.timeline)),
      m_timeline(parts.scheduler, FromOutside()) {
  BindControls(parts, speed, controls);
}

void Stage::BindControls(const ServiceParts& parts, double speed, ControlObjects controls) {
  ServiceBus& bus = parts.bus;
  BindOutsideMethods(OutsideBinder(controls.outside, &m_controlLimit), FromOutside());
  BindFaultMethods(FaultsBinder(controls.faults, &m_controlLimit),
                   {parts.scheduler, speed, m_answers, parts.segments,
                    [&bus](const std::string& name, GVariant* tuple) { bus.EmitSignal(name, tuple); },
                    [&bus](unsigned milliseconds) { bus.LeaveFor(milliseconds); }});
}

void Stage::Start() {
  MWP_LOG(MWP_LOG_INFO, "serving a world of %zu devices", FromOutside().Devices().size());
  SimulatedStack::Start();
  m_timeline.Start(m_happenings);
}

}  // namespace btservice
