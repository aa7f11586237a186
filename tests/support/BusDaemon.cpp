#include "support/BusDaemon.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace bttest {

namespace {

void WriteConfiguration(const std::string& file, const std::string& address, const std::string& services,
                        long mostBytes) {
  std::ofstream out(file);
  out << R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <auth>EXTERNAL</auth>
  <listen>)"
      << address << "</listen>\n";
  if (!services.empty()) {
    out << "  <servicedir>" << services << "</servicedir>\n";
  }
  out << R"(  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
)"
      << "  <limit name=\"max_incoming_bytes\">" << mostBytes << "</limit>\n"
      << R"(  <limit name="max_outgoing_bytes">1000000000</limit>
  <limit name="max_message_size">1000000000</limit>
  <limit name="max_match_rules_per_connection">50000</limit>
  <limit name="max_replies_per_connection">50000</limit>
</busconfig>
)";
}

}  // namespace

BusDaemon::BusDaemon(const std::string& serviceDirectory, long mostBytes)
    : m_configuration(m_directory.Path() / "bus.conf"),
      m_address("unix:path=" + (m_directory.Path() / "bus").string()) {
  WriteConfiguration(m_configuration, m_address, serviceDirectory, mostBytes);
  setenv("DBUS_SESSION_BUS_ADDRESS", m_address.c_str(), 1);
  Start();
}

BusDaemon::~BusDaemon() {
  Stop();
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void BusDaemon::Stop() { m_process.reset(); }

void BusDaemon::Start() {
  if (m_process != nullptr && m_process->IsAlive()) {
    return;
  }
  m_process = std::make_unique<ChildProcess>(std::vector<std::string>{
      "dbus-daemon", "--nofork", "--print-address", "--config-file=" + m_configuration});
  if (!m_process->WaitForOutput("\n")) {
    throw std::runtime_error("the bus does not start: " + m_process->Errors());
  }
}

}  // namespace bttest
