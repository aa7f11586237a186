#include "ipc/ShareMemory/SmallIdentifiers.h"

#include <cerrno>
#include <cstring>
#include <vector>

#include <sys/ipc.h>
#include <sys/shm.h>

#define MWP_LOG_SOURCE "ipc/ShareMemory/SmallIdentifiers"
#include <mwp/MWPLog.h>

#include "protocol/Segments.h"

namespace {

constexpr int kLastSmall = SH_BT_PARAMETER;
constexpr std::size_t kMostAttempts = 16;

/// Segments without a key, removed with this.
class PrivateSegments {
 public:
  PrivateSegments() = default;
  PrivateSegments(const PrivateSegments&) = delete;
  PrivateSegments& operator=(const PrivateSegments&) = delete;
  ~PrivateSegments() {
    for (const int identifier : m_identifiers) {
      shmctl(identifier, IPC_RMID, nullptr);
    }
  }

  std::size_t Count() const { return m_identifiers.size(); }
  /// The identifier of one more, or -1 with errno set.
  int Make() {
    m_identifiers.reserve(Count() + 1);
    const int identifier = shmget(IPC_PRIVATE, 1, IPC_CREAT | 0600);
    if (identifier != -1) {
      m_identifiers.push_back(identifier);
    }
    return identifier;
  }

 private:
  std::vector<int> m_identifiers;
};

}  // namespace

bool UseUpSmallIdentifiers() {
  // They are all kept until the end: one that is removed might leave its number to the next.
  PrivateSegments segments;
  while (segments.Count() < kMostAttempts) {
    const int identifier = segments.Make();
    if (identifier > kLastSmall) {
      return true;
    }
    if (identifier == -1) {
      MWP_LOG(MWP_LOG_ERROR, "the identifiers of segments up to %d cannot be used up: %s", kLastSmall,
              std::strerror(errno));
      return false;
    }
  }
  MWP_LOG(MWP_LOG_ERROR, "%zu segments made, and not one has an identifier above %d", kMostAttempts,
          kLastSmall);
  return false;
}
