#ifndef SERVICE_STACK_ADAPTERRULES_H
#define SERVICE_STACK_ADAPTERRULES_H

#include <cstddef>
#include <string>

#include "service/stack/StackTypes.h"

// What can be asked of an adapter whatever drives it, and what it begins with.

namespace btservice {

constexpr std::size_t kLongestDeviceName = 248;  ///< bytes of the name of a device on the air
constexpr const char* kFirstPin = "0000";        ///< until another was set
constexpr const char* kFirstDownloadFolder = "/tmp";

/// The capabilities that can be switched.
constexpr Capability kSwitches[] = {BT_CAP_POWER_SWITCH,       BT_CAP_AUTO_CONNECT,  BT_CAP_AUTO_ANSWER,
                                    BT_CAP_AUTO_REJECT_INCALL, BT_CAP_AUTO_DOWNLOAD, BT_CAP_ENABLE_SCAN,
                                    BT_CAP_LOCAL_RING};

/// Whether an attribute can have this value: a name of at most 248 bytes, a PIN of 1 to 16 digits, a class of
/// six hexadecimal digits, an absolute path; none of them may be empty. False as well for what is read only.
inline bool IsAllowed(Attribute attribute, const std::string& value) {
  constexpr std::size_t kLongestPin = 16;
  constexpr std::size_t kDigitsOfAClass = 6;
  constexpr std::size_t kLongestPath = 4096;  // bytes, as of the file system
  const auto isOf = [&](const char* letters) {
    return value.find_first_not_of(letters) == std::string::npos;
  };
  switch (attribute) {
    case BT_ATTR_LOCAL_NAME:
      return !value.empty() && value.size() <= kLongestDeviceName;
    case BT_ATTR_PIN_CODE:
      return !value.empty() && value.size() <= kLongestPin && isOf("0123456789");
    case BT_ATTR_CLASS_OF_DEVICE:
      return value.size() == kDigitsOfAClass && isOf("0123456789abcdefABCDEF");
    case BT_ATTR_DOWNLOAD_FOLDER:
      return !value.empty() && value.front() == '/' && value.size() <= kLongestPath;
    case BT_ATTR_LOCAL_ADDRESS:
    case BT_ATTR_STACK_VERSION:
      break;
  }
  return false;
}

}  // namespace btservice

#endif
