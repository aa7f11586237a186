#include "ipc/ShareMemory/ShareMemory.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <utility>

#include <sys/ipc.h>
#include <sys/shm.h>

#define MWP_LOG_SOURCE "ipc/ShareMemory/ShareMemory"
#include <mwp/MWPLog.h>

#include "ipc/ShareMemory/UsableSegment.h"
#include "protocol/Segments.h"

namespace {

/// The size of a segment, under its id.
std::pair<const int, int> SizeOf(ShareMemID id) { return {id, static_cast<int>(kSegmentCatalogue[id].size)}; }

}  // namespace

std::map<int, int> g_ShmIdMap = {
    SizeOf(SH_PAIRED_LIST),   SizeOf(SH_CONTACT_LIST),   SizeOf(SH_FAV_CONTACT_LIST),
    SizeOf(SH_CALL_LOG_LIST), SizeOf(SH_CALL_INFO_LIST),
};

std::map<int, void*> ShareMemory::m_ShmId_AddrMap;

namespace {

// The sizes with which the recorded segments were asked for.
std::map<int, std::size_t> s_sizes;

// Where each segment that was recorded begins, and where what may be used of it ends. One that is destroyed
// stays attached, and in here: destroying it needs no memory.
std::map<const unsigned char*, const unsigned char*> s_attached;

}  // namespace

SegmentBytes UsableSegment(ShareMemID id) {
  void* const address = ShareMemory::GetShareMemory(id);
  if (address == nullptr || address == reinterpret_cast<void*>(-1) || id < SH_PAIRED_LIST ||
      id > SH_BT_PARAMETER) {
    return {};
  }
  const auto size = s_sizes.find(id);
  const std::size_t contractSize = kSegmentCatalogue[id].size;
  return {static_cast<unsigned char*>(address),
          size != s_sizes.end() ? std::min(size->second, contractSize) : contractSize};
}

const unsigned char* EndOfAttached(const unsigned char* address) {
  auto segment = s_attached.upper_bound(address);
  if (segment == s_attached.begin()) {
    return nullptr;
  }
  --segment;
  return std::less_equal<>()(address, segment->second) ? segment->second : nullptr;
}

int ShareMemory::CommShm(ShareMemID id, int size, int shmflg) {
  const key_t key = ftok(kSegmentKeyPath, id);
  if (key == -1) {
    std::perror("getShareMemory ftok failed:");
    return -1;
  }
  const int shmid = shmget(key, static_cast<size_t>(size), shmflg);
  if (shmid < 0) {
    const int reason = errno;  // the log must not change what perror says
    MWP_LOG(MWP_LOG_DEBUG, "getShareMemory failed:shmid:%d", shmid);
    errno = reason;
    std::perror("getShareMemory failed");
  }
  return shmid;
}

bool ShareMemory::InitShareMemory(ShareMemID id, unsigned int size) {
  const int shmid = CommShm(id, static_cast<int>(size), IPC_CREAT | 0666);
  if (shmid == -1) {
    MWP_LOG(MWP_LOG_ERROR, "ShareMemory::InitCreatShareMemory Create Error!!!");
    return false;
  }
  void* const address = shmat(shmid, nullptr, 0);
  // Only null counts as failure. shmat reports failure with (void*)-1, which is recorded like an address, and
  // callers see success; who reads a segment asks UsableSegment().
  if (address == nullptr) {
    return false;
  }
  if (m_ShmId_AddrMap.insert({id, address}).second) {
    s_sizes[id] = size;
    if (const SegmentBytes segment = UsableSegment(id); segment.begin != nullptr) {
      s_attached[segment.begin] = segment.begin + segment.size;
    }
  }
  return true;
}

void* ShareMemory::GetShareMemory(ShareMemID id) {
  const auto entry = m_ShmId_AddrMap.find(id);
  return entry != m_ShmId_AddrMap.end() ? entry->second : nullptr;
}

int ShareMemory::DetachShareMemory(ShareMemID id) {
  const auto entry = m_ShmId_AddrMap.find(id);
  if (entry == m_ShmId_AddrMap.end()) {
    return -1;
  }
  s_attached.erase(static_cast<const unsigned char*>(entry->second));
  const int result = shmdt(entry->second);
  m_ShmId_AddrMap.erase(entry);
  return result;
}

int ShareMemory::DestroyShareMemory(ShareMemID id) {
  const auto entry = m_ShmId_AddrMap.find(id);
  if (entry == m_ShmId_AddrMap.end()) {
    return -1;
  }
  // The id itself, not what shmget returned for it: kept on purpose. As a rule it is no segment's identifier
  // and nothing is removed; where it happens to be one, that segment is marked for removal.
  const int result = shmctl(id, IPC_RMID, nullptr);
  m_ShmId_AddrMap.erase(entry);
  return result;
}
