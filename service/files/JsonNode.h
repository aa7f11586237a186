#ifndef SERVICE_FILES_JSONNODE_H
#define SERVICE_FILES_JSONNODE_H

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "service/files/Quote.h"

namespace btservice {

/// What is wrong with a file, with its name and the line: "worlds/mine.json:12: ...".
class FileError : public std::runtime_error {
 public:
  FileError(const std::string& file, int line, const std::string& what)
      : std::runtime_error(VisiblePath(file) + ":" + std::to_string(line) + ": " + what) {}
};

/// A value of a JSON text that knows on which line it stands.
struct JsonNode {
  /// FRACTION is a number that no std::int64_t holds.
  enum class Kind { NOTHING, TRUTH, INTEGER, FRACTION, TEXT, LIST, OBJECT };

  Kind kind = Kind::NOTHING;
  int line = 1;
  bool truth = false;
  std::int64_t integer = 0;
  std::string text;  ///< of a text; of a FRACTION, the number as it is written
  std::vector<JsonNode> items;
  std::vector<std::pair<std::string, JsonNode>> members;

  /// Null if there is no such member.
  const JsonNode* Find(const std::string& name) const;
};

/// A value in words, as a message about it quotes it: "an object", "'12'", "7".
std::string Describe(const JsonNode& node);

/// Parses a JSON text; // and /* */ comments are allowed. Throws FileError, also for a member that is there
/// twice, and for a text that exceeds one of the limits.
JsonNode ParseJson(const std::string& text, const std::string& fileName);

}  // namespace btservice

#endif
