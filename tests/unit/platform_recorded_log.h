#ifndef BT_TESTS_PLATFORM_RECORDED_LOG_H
#define BT_TESTS_PLATFORM_RECORDED_LOG_H

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include <glib.h>

namespace platform_test {

struct Record {
  GLogLevelFlags flags;
  std::map<std::string, std::string> fields;

  const std::string& operator[](const std::string& field) { return fields[field]; }
};

/// Keeps all that this process logs through GLib while it lives; one at a time.
class RecordedLog {
 public:
  RecordedLog() {
    // GLib allows a process one writer, once.
    static const bool installed = (g_log_set_writer_func(&RecordedLog::Write, nullptr, nullptr), true);
    static_cast<void>(installed);
    std::lock_guard<std::mutex> lock(Mutex());
    Records().clear();
  }

  std::vector<Record> Take() {
    std::lock_guard<std::mutex> lock(Mutex());
    std::vector<Record> taken;
    taken.swap(Records());
    return taken;
  }

 private:
  static std::mutex& Mutex() {
    static std::mutex mutex;
    return mutex;
  }
  static std::vector<Record>& Records() {
    static std::vector<Record> records;
    return records;
  }

  static GLogWriterOutput Write(GLogLevelFlags flags, const GLogField* fields, gsize count, gpointer) {
    Record record{flags, {}};
    for (gsize i = 0; i < count; ++i) {
      const auto* text = static_cast<const char*>(fields[i].value);
      record.fields[fields[i].key] =
          fields[i].length < 0 ? std::string(text) : std::string(text, fields[i].length);
    }
    std::lock_guard<std::mutex> lock(Mutex());
    Records().push_back(record);
    return G_LOG_WRITER_HANDLED;
  }
};

}  // namespace platform_test

#endif
