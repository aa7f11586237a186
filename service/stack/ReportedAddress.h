#ifndef SERVICE_STACK_REPORTEDADDRESS_H
#define SERVICE_STACK_REPORTEDADDRESS_H

#include <algorithm>
#include <string>

namespace btservice {

/// An address as every stack reports it: in upper case, however it was asked for.
inline std::string ReportedAddress(const std::string& address) {
  std::string text = address;
  std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  });
  return text;
}

/// Upper and lower case are the same in addresses.
inline bool SameAddress(const std::string& left, const std::string& right) {
  return ReportedAddress(left) == ReportedAddress(right);
}

}  // namespace btservice

#endif
