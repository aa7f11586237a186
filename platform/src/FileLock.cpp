#include "FileLock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

FileLock::FileLock(const std::string& path)
    : m_descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  if (m_descriptor < 0) {
    m_error = errno;
    return;
  }
  while (flock(m_descriptor, LOCK_EX) != 0) {
    if (errno != EINTR) {
      m_error = errno;
      return;
    }
  }
}

FileLock::~FileLock() {
  if (m_descriptor >= 0) {
    close(m_descriptor);
  }
}
