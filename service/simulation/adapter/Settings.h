#ifndef SERVICE_SIMULATION_ADAPTER_SETTINGS_H
#define SERVICE_SIMULATION_ADAPTER_SETTINGS_H

#include <map>
#include <string>

#include "service/simulation/ModelContext.h"

namespace btservice {

/// The switches and text attributes of the adapter.
class Settings {
 public:
  Settings(ModelContext& context, const AdapterData& adapter, const SettingsData& settings);

  /// Reported as CapabilityChanged, also if it had that value. Refuses a capability that cannot be switched,
  /// and a value other than 0 and 1.
  bool SetCapability(Capability capability, int value);
  /// 0 or 1; 0 for one that there is not.
  int GetCapability(Capability capability) const;
  bool IsOn(Capability capability) const { return GetCapability(capability) != 0; }
  bool AutoAnswersPairing() const { return m_autoAnswerPair; }

  /// Reported as AttributeChanged. Refuses an attribute that is read only, and a value that makes no sense
  /// for it: a name of more than 248 bytes, a PIN that is not 1 to 16 digits, a class that is not six
  /// hexadecimal digits, a folder that is not an absolute path; none of them may be empty.
  bool SetAttribute(Attribute attribute, const std::string& value);
  /// False, and value as it was, if there is no such attribute.
  bool GetAttribute(Attribute attribute, std::string& value) const;

  /// Reports all of them as they are, for whoever comes late.
  void ReportAll() const;

 private:
  ModelContext& m_context;
  std::map<Capability, int> m_capabilities;
  std::map<Attribute, std::string> m_attributes;
  bool m_autoAnswerPair;
};

}  // namespace btservice

#endif
