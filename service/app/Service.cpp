#include "service/app/Service.h"

#include <cstdio>
#include <ctime>
#include <utility>

#define MWP_LOG_SOURCE "service/app/Service"
#include <mwp/MWPLog.h>

#include "service/app/BusNames.h"

namespace btservice {

Service::Service(const Options& options, const WorldFile& file, GMainLoop* loop)
    : m_options(options),
      m_loop(loop),
      m_parameters(m_segments),
      m_state(options.statePath),
      m_file(Prepare(file)),
      m_scheduler(options.speed),
      m_object(com_zelk_linux_bluetooth_skeleton_new()),
      m_controls(bluetooth_sim_skeleton_new()),
      m_emitter(m_object.Get()),
      m_stack(m_scheduler, m_file.world),
      m_timeline(m_scheduler, m_stack.Controls()),
      m_publisher(m_segments, m_stack),
      m_bus({[this] { OnOwned(); }, [this](bool busIsGone) { OnLost(busIsGone); }}) {
  BindMethods();
  // Clients are told last, when all that they may look at is there.
  m_stack.AddObserver(m_parameters);
  m_state.Follow(m_stack);
  m_stack.AddObserver(m_publisher);
  m_stack.AddObserver(m_emitter);
}

WorldFile Service::Prepare(WorldFile file) {
  file.world.startTime = std::time(nullptr);
  file.world.settings = m_parameters.Load();
  m_state.Restore(file.world);
  return file;
}

void Service::BindMethods() {
  BindAllMethods(ServiceBinder(m_object.Get(), &m_answers), m_stack, m_publisher);
  const ControlBinder controls(m_controls.Get());
  BindWorldMethods(controls, m_stack.Controls());
  BindFaultMethods(controls,
                   {m_answers, m_segments,
                    [this](const std::string& name, GVariant* tuple) { m_bus.EmitSignal(name, tuple); },
                    [this](unsigned milliseconds) { m_bus.LeaveFor(milliseconds); }});
  ControlBinder(m_controls.Get()).Bind(SIM_METHOD(get_time), [this] {
    return std::tuple(m_scheduler.Now().count(), m_options.speed);
  });
}

int Service::Run() {
  if (!m_bus.Connect() || !m_bus.Export(m_object.Base(), kServicePath) ||
      !m_bus.Export(m_controls.Base(), kControlPath)) {
    std::fputs(
        "btservice: there is no session bus; set DBUS_SESSION_BUS_ADDRESS, or start one with "
        "dbus-run-session\n",
        stderr);
    return EXIT_NO_BUS;
  }
  m_bus.OwnName();
  g_main_loop_run(m_loop);
  if (!m_options.keepSegments) {
    m_segments.Remove();
  }
  return m_exitCode;
}

void Service::OnOwned() {
  if (!std::exchange(m_started, true)) {
    MWP_LOG(MWP_LOG_INFO, "serving a world of %zu devices", m_file.world.devices.size());
    m_publisher.PublishAll();
    m_stack.Start();
    m_timeline.Start(m_file.timeline);
  }
}

void Service::OnLost(bool busIsGone) {
  if (busIsGone) {
    MWP_LOG(MWP_LOG_WARNING, "the session bus is gone");
  } else {
    std::fputs(
        "btservice: com.zelk.linux.bluetooth has an owner on this bus already; end that service first\n",
        stderr);
    m_exitCode = EXIT_NAME_TAKEN;
  }
  g_main_loop_quit(m_loop);
}

}  // namespace btservice
