#ifndef SERVICE_FRONTEND_WIRELIMITS_H
#define SERVICE_FRONTEND_WIRELIMITS_H

#include <cstddef>

namespace btservice {

// What the bus accepts: it disconnects whoever sends more. GLib's own checks of names leave the length open.

constexpr std::size_t kLongestName = 255;       ///< bytes of the name of a member, an interface or an error
constexpr std::size_t kLongestSignature = 255;  ///< types of all values of a message

}  // namespace btservice

#endif
