#ifndef MWP_MWPLOG_H
#define MWP_MWPLOG_H

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include <unistd.h>
#include <zlog.h>

/// The category that all log lines of the middleware's libraries go to; null while there is no log system.
extern zlog_category_t* liblog_category;

/// Where a log line says it comes from. Log analysis on the head unit recognises many lines by these three,
/// which is why they are values that can be stated and do not always follow the layout of the source.
struct MWPLogSite {
  const char* source;    ///< source file without build prefix and extension
  const char* function;  ///< name of the function
  long line;
};

enum MWPLogLevel : int {
  MWP_LOG_DEBUG = 20,
  MWP_LOG_INFO = 40,
  MWP_LOG_WARNING = 80,
  MWP_LOG_ERROR = 100,
};

/// Writes one line to liblog_category, or the fallback line to standard output while there is none.
__attribute__((format(printf, 3, 4))) inline void MWPLogWrite(const MWPLogSite& site, MWPLogLevel level,
                                                              const char* format, ...) {
  if (liblog_category == nullptr) {
    std::printf("[%d][file:%s][func:%s][line:%ld]Warn:Log system not init.\n", static_cast<int>(getpid()),
                site.source, site.function, site.line);
    return;
  }
  va_list arguments;
  va_start(arguments, format);
  vzlog(liblog_category, site.source, std::strlen(site.source), site.function, std::strlen(site.function),
        site.line, level, format, arguments);
  va_end(arguments);
}

// The macros below need MWP_LOG_SOURCE, the source name of the file that uses them.
//
// MWP_LOG(level, format, ...)           logs the place where it stands
// MWP_LOG_AT(line, level, format, ...)  logs a line number that log analysis relies on
#define MWP_LOG(level, ...) MWPLogWrite(MWPLogSite{MWP_LOG_SOURCE, __func__, __LINE__}, level, __VA_ARGS__)
#define MWP_LOG_AT(line, level, ...) \
  MWPLogWrite(MWPLogSite{MWP_LOG_SOURCE, __func__, line}, level, __VA_ARGS__)

#endif
