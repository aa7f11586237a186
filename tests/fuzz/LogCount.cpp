#include "fuzz/LogCount.h"

#include <atomic>
#include <string_view>

#include <glib.h>

namespace bttest {
namespace {

std::atomic<int> s_errors{0};

GLogWriterOutput CountErrors(GLogLevelFlags, const GLogField* fields, gsize count, gpointer) {
  for (gsize i = 0; i < count; ++i) {
    if (std::string_view(fields[i].key) == "ZLOG_LEVEL" &&
        std::string_view(static_cast<const char*>(fields[i].value)) == "100") {
      ++s_errors;
    }
  }
  return G_LOG_WRITER_HANDLED;
}

}  // namespace

void CountErrorsFromNowOn() {
  [[maybe_unused]] static const bool isSet = (g_log_set_writer_func(CountErrors, nullptr, nullptr), true);
}

int TakeErrors() { return s_errors.exchange(0); }

}  // namespace bttest
