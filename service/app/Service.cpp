#include "service/app/Service.h"

#include <ctime>
#include <utility>

#define MWP_LOG_SOURCE "service/app/Service"
#include <mwp/MWPLog.h>

#include "service/app/EndEvents.h"

namespace btservice {

Service::Service(const Options& options, WorldFile file, ComZelkLinuxBluetooth* object,
                 BluetoothSim* controls, ServiceBus& bus)
    : m_options(options),
      m_bus(bus),
      m_parameters(m_segments),
      m_state(options.statePath),
      m_file(Prepare(std::move(file))),
      m_scheduler(options.speed, [&bus] { return bus.HasRoom(); }),
      m_emitter(object),
      m_stack(m_scheduler, m_file.world),
      m_timeline(m_scheduler, m_stack.Controls()),
      m_publisher(m_segments, m_stack) {
  BindMethods(object, controls);
  // Signals to clients go out last, when everything that clients may read is there.
  m_stack.AddObserver(m_parameters);
  m_state.Follow(m_stack);
  m_stack.AddObserver(m_publisher);
  m_stack.AddObserver(m_emitter);
}

WorldFile Service::Prepare(WorldFile file) {
  file.world.startTime = std::time(nullptr);
  file.world.settings = m_parameters.Load();
  if (const std::optional<KeptState> kept = m_state.Load()) {
    Restore(*kept, file.world);
  }
  return file;
}

void Service::BindMethods(ComZelkLinuxBluetooth* object, BluetoothSim* controlObject) {
  BindAllMethods(ServiceBinder(object, &m_answers), m_stack, m_publisher);
  ControlBinder controls(controlObject, &m_controlLimit);
  BindWorldMethods(controls, m_stack.Controls());
  BindFaultMethods(controls,
                   {m_answers, m_segments,
                    [this](const std::string& name, GVariant* tuple) { m_bus.EmitSignal(name, tuple); },
                    [this](unsigned milliseconds) { m_bus.LeaveFor(milliseconds); }});
  controls.Bind(SIM_METHOD(get_time),
                [this] { return std::tuple(m_scheduler.Now().count(), m_options.speed); });
}

void Service::Start() {
  MWP_LOG(MWP_LOG_INFO, "serving a world of %zu devices", m_file.world.devices.size());
  const LeftBehind left = ReadLeftBehind(m_segments);
  m_publisher.PublishAll();
  for (const StackEvent& event : EndEvents(left)) {
    m_emitter.OnStackEvent(event);
  }
  m_stack.Start();
  m_timeline.Start(m_file.timeline);
}

void Service::Stop() {
  m_stack.Stop();
  if (m_options.removeSegments) {
    m_segments.Remove();
  }
}

}  // namespace btservice
