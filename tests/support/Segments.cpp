#include "support/Segments.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/mount.h>
#include <sys/shm.h>
#include <unistd.h>

namespace bttest {

namespace {

constexpr const char* kServiceFile = "/app/bin/btservice";
constexpr unsigned kPermissions = 0777;

[[noreturn]] void Fail(const std::string& doing) {
  throw std::runtime_error(doing + ": " + std::strerror(errno));
}

int Identifier(ShareMemID id) {
  const key_t key = ftok(kServiceFile, id);
  return key == -1 ? -1 : shmget(key, 0, 0);
}

/// A segment attached for the length of a look.
class Attachment {
 public:
  Attachment(ShareMemID id, std::size_t offset, std::size_t length) {
    const std::optional<SegmentStatus> status = FindSegment(id);
    if (!status || offset > status->size || length > status->size - offset) {
      throw std::out_of_range("no such bytes in segment " + std::to_string(id));
    }
    m_address = shmat(status->identifier, nullptr, 0);
    if (m_address == reinterpret_cast<void*>(-1)) {
      Fail("shmat");
    }
  }
  ~Attachment() { shmdt(m_address); }
  Attachment(const Attachment&) = delete;
  Attachment& operator=(const Attachment&) = delete;

  unsigned char* Bytes() const { return static_cast<unsigned char*>(m_address); }

 private:
  void* m_address;
};

}  // namespace

std::optional<SegmentStatus> FindSegment(ShareMemID id) {
  const int identifier = Identifier(id);
  shmid_ds data = {};
  if (identifier < 0 || shmctl(identifier, IPC_STAT, &data) != 0) {
    return std::nullopt;
  }
  return SegmentStatus{identifier, data.shm_segsz, data.shm_perm.mode & kPermissions,
                       static_cast<unsigned>(data.shm_nattch)};
}

bool SegmentExists(int identifier) {
  shmid_ds data = {};
  return shmctl(identifier, IPC_STAT, &data) == 0;
}

int CountSegments() {
  shm_info info = {};
  if (shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info)) < 0) {
    Fail("counting the segments");
  }
  return info.used_ids;
}

int CreateSegment(ShareMemID id, std::size_t size, unsigned mode) {
  const key_t key = ftok(kServiceFile, id);
  const int identifier = key == -1 ? -1 : shmget(key, size, IPC_CREAT | IPC_EXCL | static_cast<int>(mode));
  if (identifier < 0) {
    Fail("creating segment " + std::to_string(id));
  }
  return identifier;
}

void RemoveSegment(ShareMemID id) {
  if (shmctl(Identifier(id), IPC_RMID, nullptr) != 0) {
    Fail("removing segment " + std::to_string(id));
  }
}

std::vector<unsigned char> ReadSegment(ShareMemID id, std::size_t offset, std::size_t length) {
  const Attachment attachment(id, offset, length);
  return {attachment.Bytes() + offset, attachment.Bytes() + offset + length};
}

void WriteSegment(ShareMemID id, std::size_t offset, const std::vector<unsigned char>& bytes) {
  const Attachment attachment(id, offset, bytes.size());
  std::copy(bytes.begin(), bytes.end(), attachment.Bytes() + offset);
}

std::vector<int> MakeDummySegments(int count) {
  std::vector<int> identifiers;
  for (int made = 0; made < count; ++made) {
    identifiers.push_back(shmget(IPC_PRIVATE, 1, IPC_CREAT | 0600));
    if (identifiers.back() < 0) {
      Fail("creating a segment");
    }
  }
  return identifiers;
}

void RemoveServiceFile() {
  // It may be a mount point of the sandbox; it also may not.
  umount2(kServiceFile, MNT_DETACH);
  if (unlink(kServiceFile) != 0 && errno != ENOENT) {
    Fail(std::string("removing ") + kServiceFile);
  }
}

void MakeServiceFile() {
  const int file = open(kServiceFile, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0555);
  if (file < 0) {
    Fail(std::string("making ") + kServiceFile);
  }
  close(file);
}

}  // namespace bttest
