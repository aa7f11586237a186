#include "btctl/session/LibraryLog.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>

#include <glib.h>

#include "btctl/base/Json.h"
#include "btctl/output/TerminalSafe.h"

namespace btctl {
namespace {

constexpr int kError = 100;  // a level of the library's log

std::atomic<LibraryLog::Display> display;
std::mutex printerMutex;  // any thread logs
LibraryLog::Printer printerOfShell;
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

const char* NameOf(GLogLevelFlags level) {
  if ((level & G_LOG_LEVEL_ERROR) != 0) {
    return "error";
  }
  if ((level & G_LOG_LEVEL_CRITICAL) != 0) {
    return "critical";
  }
  return (level & G_LOG_LEVEL_WARNING) != 0 ? "warning" : "message";
}

/// On the thread of the main loop, if there is a printer.
void Print(const std::string& line) {
  LibraryLog::Printer printer;
  {
    const std::lock_guard<std::mutex> lock(printerMutex);
    printer = printerOfShell;
  }
  if (printer) {
    printer(line);
  } else {
    std::fputs(line.c_str(), stderr);
  }
}

void Show(const Json& line, const std::string& text) {
  const std::string shown = (display.load().isJson ? ToLine(line) : TerminalSafe(text)) + "\n";
  {
    const std::lock_guard<std::mutex> lock(printerMutex);
    if (printerOfShell) {
      g_idle_add(
          [](gpointer data) -> gboolean {
            Print(*std::unique_ptr<std::string>(static_cast<std::string*>(data)));
            return G_SOURCE_REMOVE;
          },
          new std::string(shown));
      return;
    }
  }
  std::fputs(shown.c_str(), stderr);
}

/// What GLib and others complain of.
void ShowOthers(GLogLevelFlags level, const GLogField* fields, gsize count) {
  const std::string domain = FieldOf(fields, count, "GLIB_DOMAIN");
  if (g_log_writer_default_would_drop(level, domain.c_str()) != FALSE) {
    return;
  }
  const std::string message = FieldOf(fields, count, "MESSAGE");
  Show({{"kind", "log"}, {"from", domain}, {"level", NameOf(level)}, {"message", message}},
       domain + " " + NameOf(level) + ": " + message);
}

}  // namespace

void LibraryLog::Take(Display wanted) {
  display = wanted;
  const auto write = [](GLogLevelFlags level, const GLogField* fields, gsize count, gpointer) {
    const std::string libraryLevel = FieldOf(fields, count, "ZLOG_LEVEL");
    if (libraryLevel.empty()) {
      ShowOthers(level, fields, count);
      return G_LOG_WRITER_HANDLED;
    }
    const std::string message = FieldOf(fields, count, "MESSAGE");
    if (std::atoi(libraryLevel.c_str()) >= kError) {
      Note(message);
    }
    if (display.load().isShown) {
      const std::string file = FieldOf(fields, count, "CODE_FILE");
      const std::string function = FieldOf(fields, count, "CODE_FUNC");
      Show({{"kind", "log"},
            {"from", "libbt"},
            {"level", libraryLevel},
            {"file", file},
            {"function", function},
            {"message", message}},
           "libbt " + libraryLevel + " " + file + " " + function + ": " + message);
    }
    return G_LOG_WRITER_HANDLED;
  };
  g_log_set_writer_func(write, nullptr, nullptr);
}

void LibraryLog::SetPrinter(const Printer& printer) {
  const std::lock_guard<std::mutex> lock(printerMutex);
  printerOfShell = printer;
}

LibraryLog::Display LibraryLog::Exchange(Display wanted) { return display.exchange(wanted); }

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
