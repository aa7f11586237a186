#include "service/bluez/adapter/Capabilities.h"

#include <utility>

#include "service/bluez/Refusal.h"
#include "service/stack/AdapterRules.h"

namespace btservice::bluez {
namespace {

bool VisibilityHasFailed(const Reply& reply) {
  return HasFailed("the visibility of the adapter is not set", reply);
}

}  // namespace

Capabilities::Capabilities(StackContext& context, CurrentAdapter& adapter, Power& power,
                           const SettingsData& settings)
    : m_context(context), m_adapter(adapter), m_power(power) {
  for (const Capability capability : kSwitches) {
    const auto given = settings.capabilities.find(capability);
    m_values[capability] = given != settings.capabilities.end() && given->second != 0;
  }
  m_power.onOn.Add([this] { SetVisible(IsOn(BT_CAP_ENABLE_SCAN), VisibilityHasFailed); });
}

bool Capabilities::Set(Capability capability, int value) {
  if (m_values.count(capability) == 0 || (value != 0 && value != 1)) {
    return false;
  }
  if (capability != BT_CAP_ENABLE_SCAN || !m_power.IsOn()) {
    Take(capability, value);
    return true;
  }
  return SetVisible(value != 0, [this, value](const Reply& reply) {
    Take(BT_CAP_ENABLE_SCAN, VisibilityHasFailed(reply) ? m_values[BT_CAP_ENABLE_SCAN] : value);
  });
}

void Capabilities::Take(Capability capability, int value) {
  m_values[capability] = value;
  m_context.Report(CapabilityChanged{capability, value});
}

bool Capabilities::SetVisible(bool visible, ReplyHandler done) {
  // For as long as the user wants it, and not for BlueZ's three minutes.
  return m_adapter.Set("DiscoverableTimeout", g_variant_new_uint32(0)) &&
         m_adapter.Set("Discoverable", g_variant_new_boolean(visible ? TRUE : FALSE), std::move(done));
}

int Capabilities::Get(Capability capability) const {
  if (capability == BT_CAP_PARAMETER_LOADED) {
    return 1;
  }
  const auto found = m_values.find(capability);
  return found != m_values.end() ? found->second : 0;
}

void Capabilities::ReportAll() const {
  for (const auto& [capability, value] : m_values) {
    m_context.Report(CapabilityChanged{capability, value});
  }
}

}  // namespace btservice::bluez
