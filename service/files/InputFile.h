#ifndef SERVICE_FILES_INPUTFILE_H
#define SERVICE_FILES_INPUTFILE_H

#include <cstddef>
#include <stdexcept>
#include <string>

#include "service/files/Quote.h"

namespace btservice {

/// A file cannot be read. The text names it and says why: "car.json: is a directory".
class UnreadableFile : public std::runtime_error {
 public:
  UnreadableFile(const std::string& file, const std::string& why, bool isMissing = false)
      : std::runtime_error(VisiblePath(file) + ": " + why), m_isMissing(isMissing) {}
  /// Nothing of that name is there.
  bool IsMissing() const { return m_isMissing; }

 private:
  bool m_isMissing;
};

/// The contents of a regular file of at most so many bytes. Anything else, such as a directory, a pipe or a
/// device, is refused without waiting for it. Throws UnreadableFile.
std::string ReadFile(const std::string& fileName, std::size_t mostBytes);

}  // namespace btservice

#endif
