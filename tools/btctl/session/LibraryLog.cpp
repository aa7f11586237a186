#include "btctl/session/LibraryLog.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <glib.h>

namespace btctl {
namespace {

constexpr int kError = 100;  // a level of the library's log

bool isShown = false;
thread_local LibraryLog::Errors* collector = nullptr;

std::string FieldOf(const GLogField* fields, gsize count, const char* key) {
  for (gsize i = 0; i < count; ++i) {
    if (std::strcmp(fields[i].key, key) == 0) {
      const auto* const text = static_cast<const char*>(fields[i].value);
      return fields[i].length < 0 ? std::string(text)
                                  : std::string(text, static_cast<std::size_t>(fields[i].length));
    }
  }
  return {};
}

}  // namespace

void LibraryLog::Take(bool show) {
  isShown = show;
  const auto write = [](GLogLevelFlags level, const GLogField* fields, gsize count, gpointer) {
    const std::string libraryLevel = FieldOf(fields, count, "ZLOG_LEVEL");
    if (libraryLevel.empty()) {
      return g_log_writer_default(level, fields, count, nullptr);  // GLib's own complaints
    }
    const std::string message = FieldOf(fields, count, "MESSAGE");
    if (std::atoi(libraryLevel.c_str()) >= kError) {
      Note(message);
    }
    if (isShown) {
      std::fprintf(stderr, "libbt %s %s %s: %s\n", libraryLevel.c_str(),
                   FieldOf(fields, count, "CODE_FILE").c_str(), FieldOf(fields, count, "CODE_FUNC").c_str(),
                   message.c_str());
    }
    return G_LOG_WRITER_HANDLED;
  };
  g_log_writer_default_set_use_stderr(TRUE);
  g_log_set_writer_func(write, nullptr, nullptr);
}

void LibraryLog::Note(const std::string& error) {
  if (collector != nullptr && collector->m_first.empty()) {
    collector->m_first = error;
  }
}

LibraryLog::Errors::Errors() { collector = this; }

LibraryLog::Errors::~Errors() { collector = nullptr; }

std::string LibraryLog::Errors::Reason() const {
  static constexpr char kReason[] = "Reason: ";
  const std::size_t place = m_first.find(kReason);
  return place == std::string::npos ? m_first : m_first.substr(place + std::strlen(kReason));
}

}  // namespace btctl
