#include "support/LogCapture.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string_view>

// Of the stand-in of zlog. The real one has no such function, and takes its level from its configuration.
extern "C" void zlog_standin_set_minimum_level(int level) __attribute__((weak));

namespace bttest {

namespace {

constexpr int kDebug = 20;

std::mutex currentMutex;
LogCapture* current = nullptr;

std::string_view Find(const GLogField* fields, gsize count, std::string_view key) {
  for (const GLogField* field = fields; field != fields + count; ++field) {
    if (field->key == key) {
      const auto* const text = static_cast<const char*>(field->value);
      return field->length < 0 ? std::string_view(text)
                               : std::string_view(text, static_cast<std::size_t>(field->length));
    }
  }
  return {};
}

template <typename Predicate>
std::vector<LogRecord> Filtered(const std::vector<LogRecord>& records, Predicate isWanted) {
  std::vector<LogRecord> wanted;
  std::copy_if(records.begin(), records.end(), std::back_inserter(wanted), isWanted);
  return wanted;
}

}  // namespace

bool operator==(const LogRecord& left, const LogRecord& right) {
  return left.file == right.file && left.function == right.function && left.line == right.line &&
         left.level == right.level && left.message == right.message;
}

std::ostream& operator<<(std::ostream& out, const LogRecord& record) {
  return out << '{' << record.file << ' ' << record.function << ':' << record.line << " level "
             << record.level << " \"" << record.message << "\"}";
}

LogCapture::LogCapture() {
  static std::once_flag once;
  std::call_once(once, [] { g_log_set_writer_func(Write, nullptr, nullptr); });
  if (zlog_standin_set_minimum_level != nullptr) {
    zlog_standin_set_minimum_level(kDebug);
  }
  std::lock_guard<std::mutex> lock(currentMutex);
  if (current != nullptr) {
    throw std::logic_error("there is a LogCapture already");
  }
  current = this;
}

LogCapture::~LogCapture() {
  std::lock_guard<std::mutex> lock(currentMutex);
  current = nullptr;
}

GLogWriterOutput LogCapture::Write(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer) {
  {
    std::lock_guard<std::mutex> lock(currentMutex);
    if (current != nullptr) {
      current->Take(level, fields, count);
      if (std::getenv("BTTEST_SHOW_LOG") == nullptr) {
        return G_LOG_WRITER_HANDLED;
      }
      return g_log_writer_standard_streams(level, fields, count, nullptr);
    }
  }
  return g_log_writer_default(level, fields, count, nullptr);
}

void LogCapture::Take(GLogLevelFlags level, const GLogField* fields, gsize count) {
  const auto field = [&](std::string_view key) { return std::string(Find(fields, count, key)); };
  const std::string zlogLevel = field("ZLOG_LEVEL");
  std::lock_guard<std::mutex> lock(m_mutex);
  if (!zlogLevel.empty()) {
    m_records.push_back({field("CODE_FILE"), field("CODE_FUNC"), std::atol(field("CODE_LINE").c_str()),
                         std::atoi(zlogLevel.c_str()), field("MESSAGE")});
  } else if ((level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)) != 0) {
    m_complaints.push_back(field("GLIB_DOMAIN") + ": " + field("MESSAGE"));
  }
}

std::vector<LogRecord> LogCapture::Records() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_records;
}

std::vector<LogRecord> LogCapture::OfLevel(int level) const {
  return Filtered(Records(), [=](const LogRecord& record) { return record.level == level; });
}

std::vector<LogRecord> LogCapture::OfFunction(const std::string& function) const {
  return Filtered(Records(), [&](const LogRecord& record) { return record.function == function; });
}

std::vector<std::string> LogCapture::Messages() const {
  std::vector<std::string> messages;
  for (const LogRecord& record : Records()) {
    messages.push_back(record.message);
  }
  return messages;
}

std::vector<std::string> LogCapture::Complaints() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_complaints;
}

void LogCapture::Clear() {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_records.clear();
  m_complaints.clear();
}

}  // namespace bttest
