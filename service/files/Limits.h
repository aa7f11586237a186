#ifndef SERVICE_FILES_LIMITS_H
#define SERVICE_FILES_LIMITS_H

#include <cstddef>

namespace btservice {

// How much is taken from outside: worlds, vCards, the state file, devices that a control describes. More is
// refused with a message, so that nothing from outside can end or stop the service.

constexpr std::size_t kMostJsonBytes = std::size_t{16} << 20;
constexpr std::size_t kMostVCardBytes = std::size_t{64} << 20;  ///< in all vCard files of a world
constexpr std::size_t kDeepestNesting = 64;   ///< lists and objects within each other in a JSON text
constexpr std::size_t kMostValues = 1000000;  ///< in a JSON text
constexpr std::size_t kLongestText = std::size_t{64} << 10;  ///< bytes of a text or a name in a JSON text
constexpr std::size_t kLongestPattern = 64;         ///< bytes of a text that has a form, such as a date
constexpr std::size_t kMostDevices = 1000;          ///< in a world
constexpr std::size_t kMostContacts = 100000;       ///< in a phone book
constexpr std::size_t kMostContactsInAll = 200000;  ///< in all phone books of a world

}  // namespace btservice

#endif
