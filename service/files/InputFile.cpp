#include "service/files/InputFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace btservice {
namespace {

/// An open file that closes itself.
class Descriptor {
 public:
  explicit Descriptor(const std::string& fileName)
      // O_NONBLOCK: opening a pipe that has just taken the place of the file would wait for its writer.
      : m_descriptor(open(fileName.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
  ~Descriptor() {
    if (m_descriptor >= 0) {
      close(m_descriptor);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Get() const { return m_descriptor; }

 private:
  int m_descriptor;
};

UnreadableFile LastError(const std::string& fileName) {
  const int reason = errno;
  return UnreadableFile(fileName, std::string("cannot be read: ") + std::strerror(reason), reason == ENOENT);
}

void RefuseIfIrregular(const std::string& fileName, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) {
    throw UnreadableFile(fileName, "is a directory, not a file");
  }
  if (!S_ISREG(status.st_mode)) {
    throw UnreadableFile(fileName, "is not a regular file");
  }
}

}  // namespace

std::string ReadFile(const std::string& fileName, std::size_t mostBytes) {
  struct stat status = {};
  if (stat(fileName.c_str(), &status) != 0) {
    throw LastError(fileName);
  }
  RefuseIfIrregular(fileName, status);  // to open some devices has an effect
  const Descriptor file(fileName);
  if (file.Get() < 0 || fstat(file.Get(), &status) != 0) {
    throw LastError(fileName);
  }
  RefuseIfIrregular(fileName, status);
  std::string contents;
  // One byte more shows that there is too much, also in a file that grows meanwhile.
  contents.resize(std::min(static_cast<std::size_t>(status.st_size), mostBytes) + 1);
  std::size_t size = 0;
  for (;;) {
    const ssize_t part = read(file.Get(), contents.data() + size, contents.size() - size);
    if (part < 0 && errno == EINTR) {
      continue;
    }
    if (part < 0) {
      throw LastError(fileName);
    }
    size += static_cast<std::size_t>(part);
    if (size > mostBytes) {
      throw UnreadableFile(fileName, "is larger than " + std::to_string(mostBytes >> 20) + " MiB");
    }
    if (part == 0) {
      break;
    }
    if (size == contents.size()) {
      contents.resize(std::min(2 * size, mostBytes + 1));
    }
  }
  contents.resize(size);
  return contents;
}

}  // namespace btservice
