#include "btctl/cli/KnownNames.h"

#include <algorithm>

namespace btctl {

void KnownNames::Learn(const Event& event) {
  const auto& fields = event.description->fields;
  if (std::find(fields.begin(), fields.end(), "address") != fields.end()) {
    AddAddress(event.Value("address").shown);
  }
}

void KnownNames::AddAddress(const std::string& address) {
  if (!address.empty()) {
    m_addresses.insert(address);
  }
}

}  // namespace btctl
