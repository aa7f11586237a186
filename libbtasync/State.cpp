#include <btasync/State.h>

#include <algorithm>
#include <tuple>

namespace btasync {
inline namespace v0 {

ConnStatus PairedDevice::StatusOf(ProfileId profile) const {
  const auto connection = std::find_if(connections.begin(), connections.end(),
                                       [&](const ProfileConnection& one) { return one.profile == profile; });
  return connection != connections.end() ? connection->status : BT_CONN_DISCONNECTED;
}

bool operator==(const CallEntry& one, const CallEntry& other) {
  const auto members = [](const CallEntry& it) {
    return std::tie(it.callId, it.status, it.incoming, it.conference, it.seconds, it.number, it.name,
                    it.phone);
  };
  return members(one) == members(other);
}

}  // namespace v0
}  // namespace btasync
