#ifndef TESTS_SYSTEM_LOG_LINES_H
#define TESTS_SYSTEM_LOG_LINES_H

#include <string>
#include <vector>

#include "support/LogCapture.h"

namespace bttest {

/// A log line as "source function level text": all but the line number, which is fixed for few of them.
inline std::string LineText(const LogRecord& record) {
  return record.file + ' ' + record.function + ' ' + std::to_string(record.level) + ' ' + record.message;
}

inline std::vector<std::string> LineTexts(const std::vector<LogRecord>& records) {
  std::vector<std::string> texts;
  for (const LogRecord& record : records) {
    texts.push_back(LineText(record));
  }
  return texts;
}

}  // namespace bttest

#endif
