#include "zlog.h"

#include <atomic>
#include <cstdio>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <string>

#include <glib.h>

struct zlog_category_s {
  std::string name;
};

namespace {

constexpr int kInfo = 40;

std::atomic<int> minimumLevel{kInfo};

struct Severity {
  int level;             ///< of zlog, and above up to the next
  const char* priority;  ///< of syslog
  GLogLevelFlags flags;
};

// Errors are warnings to GLib, which ends the process at its own error level and keeps its critical level
// for programming errors. The priority tells them apart.
constexpr Severity kSeverities[] = {
    {120, "2", G_LOG_LEVEL_WARNING}, {100, "3", G_LOG_LEVEL_WARNING}, {80, "4", G_LOG_LEVEL_WARNING},
    {60, "5", G_LOG_LEVEL_MESSAGE},  {40, "6", G_LOG_LEVEL_INFO},
};
constexpr Severity kDebug = {20, "7", G_LOG_LEVEL_DEBUG};

const Severity& SeverityOf(int level) {
  for (const Severity& severity : kSeverities) {
    if (level >= severity.level) {
      return severity;
    }
  }
  return kDebug;
}

/// The formatted text of one record, on the stack unless it is long.
class Message {
 public:
  Message(const char* format, va_list args) {
    va_list again;
    va_copy(again, args);
    const int needed = std::vsnprintf(m_short, sizeof m_short, format, args);
    if (needed < 0) {
      // A wide character that the locale cannot express: the format alone is better than nothing.
      m_text = format;
    } else if (static_cast<std::size_t>(needed) >= sizeof m_short) {
      const std::size_t size = static_cast<std::size_t>(needed) + 1;
      m_long.reset(new (std::nothrow) char[size]);
      if (m_long != nullptr) {
        std::vsnprintf(m_long.get(), size, format, again);
        m_text = m_long.get();
      }
    }
    va_end(again);
  }

  const char* Text() const { return m_text; }

 private:
  char m_short[1024];
  std::unique_ptr<char[]> m_long;
  const char* m_text = m_short;
};

}  // namespace

zlog_category_t* zlog_get_category(const char* name) {
  struct Categories {
    std::mutex mutex;
    std::map<std::string, zlog_category_s> byName;
  };
  // Never deleted: static destructors log, too.
  static auto* const categories = new Categories;
  if (name == nullptr) {
    return nullptr;
  }
  std::lock_guard<std::mutex> lock(categories->mutex);
  return &categories->byName.emplace(name, zlog_category_s{name}).first->second;
}

void vzlog(zlog_category_t* category, const char* file, size_t filelen, const char* func, size_t funclen,
           long line, int level, const char* format, va_list args) {
  if (category == nullptr || level < minimumLevel.load(std::memory_order_relaxed)) {
    return;
  }
  const Message message(format, args);
  const Severity& severity = SeverityOf(level);
  char lineText[24];
  char levelText[16];
  std::snprintf(lineText, sizeof lineText, "%ld", line);
  std::snprintf(levelText, sizeof levelText, "%d", level);

  constexpr gssize kTerminated = -1;
  const GLogField fields[] = {
      {"MESSAGE", message.Text(), kTerminated},
      {"PRIORITY", severity.priority, kTerminated},
      {"CODE_FILE", file, static_cast<gssize>(filelen)},
      {"CODE_FUNC", func, static_cast<gssize>(funclen)},
      {"CODE_LINE", lineText, kTerminated},
      {"GLIB_DOMAIN", category->name.c_str(), kTerminated},
      {"ZLOG_LEVEL", levelText, kTerminated},
  };
  g_log_structured_array(severity.flags, fields, G_N_ELEMENTS(fields));
}

void zlog(zlog_category_t* category, const char* file, size_t filelen, const char* func, size_t funclen,
          long line, int level, const char* format, ...) {
  va_list args;
  va_start(args, format);
  vzlog(category, file, filelen, func, funclen, line, level, format, args);
  va_end(args);
}

void zlog_standin_set_minimum_level(int level) { minimumLevel.store(level, std::memory_order_relaxed); }
