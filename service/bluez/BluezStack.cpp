#include "service/bluez/BluezStack.h"

#include "service/bluez/BluezNames.h"
#include "service/bluez/adapter/BluezAdapter.h"
#include "service/bluez/devices/BluezDevices.h"

namespace btservice::bluez {

BluezStack::BluezStack(Scheduler& scheduler, const StackStart& start)
    : m_context{scheduler, Observers()},
      m_keptPaired(start.kept ? start.kept->paired : std::vector<KeptDevice>()),
      m_bus(scheduler),
      m_daemon(m_bus, kBluezName),
      m_commands(m_daemon),
      m_mirror(m_daemon, scheduler, kBluezPrefix),
      m_adapter(m_mirror, m_commands),
      m_power(m_context, m_adapter),
      m_attributes(m_context, m_adapter, start.kept),
      m_capabilities(m_context, m_adapter, m_power, start.settings),
      m_found(m_context, m_mirror, m_adapter),
      m_search(m_context, m_adapter, m_power, m_found),
      m_adapterControl(MakeBluezAdapter(m_power, m_attributes, m_capabilities, m_search, m_found)),
      m_deviceControl(MakeBluezDevices(m_found)) {}

void BluezStack::Start() {
  m_power.Begin(m_capabilities.IsOn(BT_CAP_POWER_SWITCH));
  m_power.Report();  // off until BlueZ has said what there is; a stack before this one may have been on
  m_bus.Connect();
}

void BluezStack::Stop() {
  // As when the adapter goes down, but the power switch stays as it is: nobody has asked for it to go off.
  m_power.onDown();
}

KeptState BluezStack::Kept() const { return {m_attributes.Kept(), m_keptPaired}; }

}  // namespace btservice::bluez
