#include "service/simulation/adapter/Settings.h"

#include "service/stack/AdapterRules.h"

namespace btservice {

Settings::Settings(ModelContext& context, const AdapterData& adapter, const SettingsData& settings)
    : m_context(context),
      m_attributes{{BT_ATTR_LOCAL_NAME, adapter.name},
                   {BT_ATTR_LOCAL_ADDRESS, adapter.address},
                   {BT_ATTR_PIN_CODE, adapter.pin},
                   {BT_ATTR_STACK_VERSION, adapter.stackVersion},
                   {BT_ATTR_CLASS_OF_DEVICE, adapter.classOfDevice},
                   {BT_ATTR_DOWNLOAD_FOLDER, adapter.downloadFolder}},
      m_autoAnswerPair(settings.autoAnswerPair != 0) {
  for (const Capability capability : kSwitches) {
    const auto given = settings.capabilities.find(capability);
    m_capabilities[capability] = given != settings.capabilities.end() && given->second != 0;
  }
}

bool Settings::SetCapability(Capability capability, int value) {
  const auto entry = m_capabilities.find(capability);
  if (entry == m_capabilities.end() || (value != 0 && value != 1)) {
    return false;
  }
  entry->second = value;
  m_context.Report(CapabilityChanged{capability, value});
  return true;
}

int Settings::GetCapability(Capability capability) const {
  if (capability == BT_CAP_PARAMETER_LOADED) {
    return 1;
  }
  const auto entry = m_capabilities.find(capability);
  return entry != m_capabilities.end() ? entry->second : 0;
}

bool Settings::SetAttribute(Attribute attribute, const std::string& value) {
  if (!IsAllowed(attribute, value)) {
    return false;
  }
  m_attributes[attribute] = value;
  m_context.Report(AttributeChanged{attribute, value});
  return true;
}

bool Settings::GetAttribute(Attribute attribute, std::string& value) const {
  const auto entry = m_attributes.find(attribute);
  if (entry == m_attributes.end()) {
    return false;
  }
  value = entry->second;
  return true;
}

void Settings::ReportAll() const {
  for (const auto& [capability, value] : m_capabilities) {
    m_context.Report(CapabilityChanged{capability, value});
  }
  for (const auto& [attribute, value] : m_attributes) {
    m_context.Report(AttributeChanged{attribute, value});
  }
}

}  // namespace btservice
