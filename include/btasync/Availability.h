#ifndef BTASYNC_AVAILABILITY_H
#define BTASYNC_AVAILABILITY_H

#include <btasync/Export.h>

namespace btasync {
inline namespace v0 {

/// Whether the Bluetooth service is there.
enum class Availability {
  Unknown,  ///< not known yet: the first moments
  NoBus,    ///< no session bus, or the connection to it was lost; tried again every second
  Absent,   ///< nobody on the bus has the service's name
  Present,  ///< somebody has; what was known of the service before is void
};

/// A word for it: "absent".
BTASYNC_API const char* ToText(Availability availability);

}  // namespace v0
}  // namespace btasync

#endif
