#include "ipc/ShareMemory/SegmentOwner.h"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <sys/ipc.h>
#include <sys/shm.h>

#define MWP_LOG_SOURCE "ipc/ShareMemory/SegmentOwner"
#include <mwp/MWPLog.h>

#include "ipc/ShareMemory/SmallIdentifiers.h"

namespace {

constexpr int kAccess = 0666;

/// Whether the process that created a segment no longer exists, so that nobody else would ever remove it.
bool IsOrphan(int shmid) {
  shmid_ds status = {};
  if (shmctl(shmid, IPC_STAT, &status) == -1 || status.shm_cpid <= 0) {
    return false;  // made where the process cannot be seen from here
  }
  return kill(status.shm_cpid, 0) == -1 && errno == ESRCH;
}

}  // namespace

SegmentOwner::~SegmentOwner() {
  for (auto& [id, segment] : m_segments) {
    Detach(segment);
  }
}

void* SegmentOwner::Attach(ShareMemID id, bool* fresh) {
  const SegmentEntry& entry = kSegmentCatalogue[id];
  Segment& segment = m_segments[id];
  bool made = false;
  const int shmid = Find(entry, &made);
  const bool isOther = shmid != segment.shmid || segment.address == nullptr;
  if (fresh != nullptr) {
    *fresh = isOther;
  }
  if (!isOther) {
    return segment.address;
  }
  Detach(segment);
  void* const address = shmid != -1 ? shmat(shmid, nullptr, 0) : reinterpret_cast<void*>(-1);
  if (address == reinterpret_cast<void*>(-1)) {
    ReportError(entry, segment, errno);
    return nullptr;
  }
  segment = Segment{shmid, address, made, 0};
  return address;
}

bool SegmentOwner::HasMade(ShareMemID id) const {
  const auto entry = m_segments.find(id);
  return entry != m_segments.end() && entry->second.own;
}

void SegmentOwner::Remove() {
  for (auto& [id, segment] : m_segments) {
    const bool isToGo = segment.own || IsOrphan(segment.shmid);
    if (isToGo && shmctl(segment.shmid, IPC_RMID, nullptr) == -1) {
      MWP_LOG(MWP_LOG_ERROR, "%s cannot be removed: %s", kSegmentCatalogue[id].name, std::strerror(errno));
    }
    Detach(segment);
  }
}

int SegmentOwner::Find(const SegmentEntry& entry, bool* made) const {
  const key_t key = ftok(kSegmentKeyPath, entry.id);
  if (key == -1) {
    return -1;
  }
  // A client may make or remove the segment between the two questions: ask again then.
  for (;;) {
    const int found = shmget(key, entry.size, kAccess);
    if (found != -1 || errno != ENOENT) {
      return found;
    }
    UseUpSmallIdentifiers();
    const int created = shmget(key, entry.size, IPC_CREAT | IPC_EXCL | kAccess);
    if (created != -1 || errno != EEXIST) {
      *made = created != -1;
      return created;
    }
  }
}

void SegmentOwner::Detach(Segment& segment) {
  if (segment.address != nullptr) {
    shmdt(segment.address);
  }
  segment = Segment{-1, nullptr, false, segment.reportedError};
}

void SegmentOwner::ReportError(const SegmentEntry& entry, Segment& segment, int error) const {
  if (segment.reportedError == error) {
    return;
  }
  segment.reportedError = error;
  const char* hint = "";
  if (error == EINVAL) {
    hint = " (a smaller one exists under its key: see ipcs -m, and ipcrm)";
  } else if (error == ENOENT) {
    hint = " (its key is made from that file)";
  }
  MWP_LOG(MWP_LOG_ERROR, "%s, %zu bytes by the key of %s, cannot be had: %s%s", entry.name, entry.size,
          kSegmentKeyPath, std::strerror(error), hint);
}
