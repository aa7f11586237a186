#include "service/app/Process.h"

#include <cstdio>

#define MWP_LOG_SOURCE "service/app/Process"
#include <mwp/MWPLog.h>

#include "protocol/BusNames.h"

namespace btservice {

Process::Process(const Options& options, StackProvider& provider, GMainLoop* loop)
    : m_options(options),
      m_provider(provider),
      m_loop(loop),
      m_object(com_zelk_linux_bluetooth_skeleton_new()),
      m_bus({[this] { OnOwned(); }, [this](bool busIsGone) { OnLost(busIsGone); }}) {}

int Process::Run() {
  if (!m_bus.Connect() || !m_bus.Export(m_object.Base(), kServicePath) || !m_provider.Export(m_bus)) {
    std::fputs(
        "btservice: there is no session bus; set DBUS_SESSION_BUS_ADDRESS, or start one with "
        "dbus-run-session\n",
        stderr);
    return EXIT_NO_BUS;
  }
  m_bus.OwnName();
  g_main_loop_run(m_loop);
  // Without the name, the segments may be those of another service by now: they are left alone.
  if (m_service && m_bus.OwnsName()) {
    m_service->Stop();
  }
  return m_exitCode;
}

/// Comes before the first call to the name is looked at, so that the service answers it.
void Process::OnOwned() {
  if (!m_service) {
    m_service.emplace(m_options, m_provider, m_object.Get(), m_bus);
    m_service->Start();
  }
}

void Process::OnLost(bool busIsGone) {
  if (busIsGone) {
    MWP_LOG(MWP_LOG_WARNING, "the session bus is gone");
  } else {
    std::fprintf(stderr, "btservice: %s has an owner on this bus already; end that service first\n",
                 kServiceName);
    m_exitCode = EXIT_NAME_TAKEN;
  }
  g_main_loop_quit(m_loop);
}

}  // namespace btservice
