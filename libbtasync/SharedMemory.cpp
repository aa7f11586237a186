#include "libbtasync/SharedMemory.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <sys/ipc.h>
#include <sys/shm.h>

#include "protocol/Segments.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

/// A segment as long as it is attached here, to be read.
class AttachedSegment {
 public:
  explicit AttachedSegment(int identifier) : m_address(shmat(identifier, nullptr, SHM_RDONLY)) {}
  AttachedSegment(const AttachedSegment&) = delete;
  AttachedSegment& operator=(const AttachedSegment&) = delete;
  ~AttachedSegment() {
    if (Begin() != nullptr) {
      shmdt(m_address);
    }
  }

  /// Null if it could not be attached.
  const unsigned char* Begin() const {
    return m_address != reinterpret_cast<void*>(-1) ? static_cast<const unsigned char*>(m_address) : nullptr;
  }

 private:
  void* m_address;
};

SegmentCopy NoCopy(const SegmentEntry& entry, const char* what, int error) {
  SegmentCopy none;
  none.whyNone = std::string(what) + " " + entry.name + ": " + std::generic_category().message(error);
  return none;
}

}  // namespace

const unsigned char* EndOfSegment(const unsigned char*, const unsigned char* end) { return end; }

SegmentCopy CopySegment(ShareMemID id, FindEnd findEnd) {
  const SegmentEntry& entry = kSegmentCatalogue[id];
  const key_t key = ftok(kSegmentKeyPath, id);
  const int identifier = key != -1 ? shmget(key, 0, 0) : -1;
  if (identifier == -1) {
    return NoCopy(entry, "no segment", errno);
  }
  const AttachedSegment segment(identifier);
  shmid_ds status{};
  if (segment.Begin() == nullptr || shmctl(identifier, IPC_STAT, &status) == -1) {
    return NoCopy(entry, "no access to segment", errno);
  }
  SegmentCopy copy;
  copy.segmentSize = std::min<std::size_t>(status.shm_segsz, entry.size);
  copy.bytes.assign(segment.Begin(), findEnd(segment.Begin(), segment.Begin() + copy.segmentSize));
  return copy;
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
