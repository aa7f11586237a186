#ifndef SERVICE_BLUEZ_ADAPTER_ATTRIBUTES_H
#define SERVICE_BLUEZ_ADAPTER_ATTRIBUTES_H

#include <map>
#include <optional>
#include <set>
#include <string>

#include "service/bluez/StackContext.h"
#include "service/bluez/adapter/CurrentAdapter.h"
#include "service/stack/StackStart.h"

namespace btservice::bluez {

/// The text attributes of the adapter. Name, address, class and version are the adapter's, and not known
/// without one; PIN and download folder are the service's own. BlueZ keeps a name for each adapter; one that
/// was set here is the head unit's, and given to an adapter that comes with another.
class Attributes {
 public:
  /// kept: what the last service has kept, if there was one.
  Attributes(StackContext& context, CurrentAdapter& adapter, const std::optional<KeptState>& kept);

  /// AttributeChanged follows, for a name when BlueZ has taken it; if it does not, a line in the log says
  /// why. Refuses a value that makes no sense, what is read only, and a name without an adapter. The class is
  /// read only: BlueZ takes it from its configuration.
  bool Set(Attribute attribute, const std::string& value);
  /// False, and value as it was, if it is not known.
  bool Get(Attribute attribute, std::string& value) const;
  /// Reports those that are known.
  void ReportAll() const;
  /// Those that the next service is to begin with.
  const std::map<Attribute, std::string>& Kept() const { return m_own; }

 private:
  std::optional<std::string> Find(Attribute attribute) const;
  void Report(Attribute attribute) const;
  void OnCome();
  void OnChanged(const std::set<std::string>& names);
  bool SetName(const std::string& name);
  void KeepName();

  StackContext& m_context;
  CurrentAdapter& m_adapter;
  std::map<Attribute, std::string> m_own;  ///< set here or by default; the name only if it was set
  std::string m_orderedName;               ///< BlueZ was asked for this one last
  unsigned m_nameReports = 0;              ///< how often a new name was reported
};

}  // namespace btservice::bluez

#endif
