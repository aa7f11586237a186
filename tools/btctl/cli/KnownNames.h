#ifndef TOOLS_BTCTL_CLI_KNOWNNAMES_H
#define TOOLS_BTCTL_CLI_KNOWNNAMES_H

#include <set>
#include <string>

namespace btctl {

struct Event;

/// The names that the shell has come across, to complete with: as they are shown, since they come
/// from outside and are put into the line.
class KnownNames {
 public:
  /// Any event may name a device.
  void Learn(const Event& event);
  void AddAddress(const std::string& address);
  void SetContacts(const std::set<std::string>& names);

  const std::set<std::string>& Addresses() const { return m_addresses; }
  const std::set<std::string>& Contacts() const { return m_contacts; }

 private:
  std::set<std::string> m_addresses;
  std::set<std::string> m_contacts;
};

}  // namespace btctl

#endif
