#ifndef TESTS_SUPPORT_LOGCAPTURE_H
#define TESTS_SUPPORT_LOGCAPTURE_H

#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

#include <glib.h>

namespace bttest {

/// One line of the log.
struct LogRecord {
  std::string file;
  std::string function;
  long line;
  int level;  ///< of zlog: 20 debug, 40 info, 60 notice, 80 warning, 100 error
  std::string message;
};

bool operator==(const LogRecord& left, const LogRecord& right);
std::ostream& operator<<(std::ostream& out, const LogRecord& record);

/// Collects, from all threads, what is logged while it lives; debug level included, and so it stays for the
/// rest of the process. One at a time. It uses GLib's log writer, which a process can set only once, so a
/// test that sets it, too, cannot use this.
///
/// With BTTEST_SHOW_LOG in the environment all of it is also shown.
class LogCapture {
 public:
  LogCapture();
  ~LogCapture();
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  std::vector<LogRecord> Records() const;
  /// Those of that level, and those with that function name.
  std::vector<LogRecord> OfLevel(int level) const;
  std::vector<LogRecord> OfFunction(const std::string& function) const;
  /// The texts of Records(), for comparisons at a glance.
  std::vector<std::string> Messages() const;
  /// What GLib itself had to complain of, and others who log through it: warnings, criticals and errors.
  std::vector<std::string> Complaints() const;
  void Clear();

 private:
  static GLogWriterOutput Write(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer unused);
  void Take(GLogLevelFlags level, const GLogField* fields, gsize count);

  mutable std::mutex m_mutex;
  std::vector<LogRecord> m_records;
  std::vector<std::string> m_complaints;
};

}  // namespace bttest

#endif
