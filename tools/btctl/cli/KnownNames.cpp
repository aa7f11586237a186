#include "btctl/cli/KnownNames.h"

#include <algorithm>
#include <iterator>

#include "btctl/base/Json.h"
#include "btctl/events/Event.h"
#include "btctl/output/TerminalSafe.h"

namespace btctl {

void KnownNames::Learn(const Event& event) {
  const auto& fields = event.description->fields;
  if (std::find(fields.begin(), fields.end(), "address") != fields.end()) {
    AddAddress(event.Value("address").shown);
  }
}

void KnownNames::AddAddress(const std::string& address) {
  if (!address.empty()) {
    m_addresses.insert(TerminalSafe(address));
  }
}

void KnownNames::SetContacts(const std::set<std::string>& names) {
  m_contacts.clear();
  std::transform(names.begin(), names.end(), std::inserter(m_contacts, m_contacts.end()), TerminalSafe);
}

}  // namespace btctl
