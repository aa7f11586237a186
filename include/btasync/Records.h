#ifndef BTASYNC_RECORDS_H
#define BTASYNC_RECORDS_H

#include <vector>

#include <bluetooth/MWPBtRecords.h>
#include <bluetooth/MWPBtType.h>
#include <btasync/Text.h>

// The enumerations and records are those of the blocking library, so that an application can use both for
// years. What the fields strText… and nValue… of a record mean is the service's affair; the comments there
// tell what btservice writes.

namespace btasync {
inline namespace v0 {

using namespace MWPBtType;

/// Bytes of a serial channel, or of a key.
using Bytes = std::vector<unsigned char>;

/// The connection of the phone or of the player.
struct ConnectionState {
  ConnStatus status = BT_CONN_UNKNOWN;  ///< its state
  Address address;                      ///< empty if there is none
};

/// Where the player is in the track, in milliseconds.
struct PlayPosition {
  int position = 0;  ///< from the beginning of the track
  int length = 0;    ///< of the track
};

}  // namespace v0
}  // namespace btasync

#endif
