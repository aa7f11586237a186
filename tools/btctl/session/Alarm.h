#ifndef TOOLS_BTCTL_SESSION_ALARM_H
#define TOOLS_BTCTL_SESSION_ALARM_H

#include <algorithm>
#include <chrono>

#include <glib.h>

#include "glib/OwnedId.h"

namespace btctl {

/// A time to come. The main loop wakes at it, so that those who wait there can see that it has come.
class Alarm {
 public:
  explicit Alarm(std::chrono::milliseconds after)
      : m_time(std::chrono::steady_clock::now() + after),
        m_wakeUp(g_timeout_add(
            static_cast<guint>(std::max<std::int64_t>(after.count(), 1)),
            [](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr)) {}

  bool HasCome() const { return std::chrono::steady_clock::now() >= m_time; }
  std::chrono::steady_clock::duration Remaining() const { return m_time - std::chrono::steady_clock::now(); }

 private:
  const std::chrono::steady_clock::time_point m_time;
  const OwnedSourceId m_wakeUp;
};

}  // namespace btctl

#endif
