#ifndef SERVICE_FRONTEND_SEGMENTS_LEFTBEHIND_H
#define SERVICE_FRONTEND_SEGMENTS_LEFTBEHIND_H

#include <cstdint>
#include <string>
#include <vector>

#include "ipc/ShareMemory/SegmentOwner.h"

namespace btservice {

/// What a service that died has left in the segments: applications still believe it.
struct LeftBehind {
  std::vector<int> callIds;                   ///< of the calls in the table, and of those beyond its slots
  std::vector<std::string> connectedDevices;  ///< addresses; connected, or on the way to it or away from it
};

/// To be called once, when the service owns its name, and before the lists are emptied. A segment that is
/// missing is made, and nothing is found in it; so it is in one that cannot be had, with an error in the log.
LeftBehind ReadLeftBehind(SegmentOwner& segments);

// The readers of the two lists. The memory may hold anything: what makes no sense is left out.

/// From SH_CALL_INFO_LIST.
std::vector<int> ReadCallIds(const std::uint8_t* memory, std::size_t size);
/// From SH_PAIRED_LIST.
std::vector<std::string> ReadConnectedDevices(const std::uint8_t* memory, std::size_t size);

}  // namespace btservice

#endif
