#include "btctl/events/Listeners.h"

#include <glib.h>

#include "btctl/events/ListenerClasses.h"

namespace btctl {

std::string Reporter::Now() {
  constexpr int kMicrosecondsPerMillisecond = 1000;
  g_autoptr(GDateTime) now = g_date_time_new_now_utc();
  g_autofree char* seconds = g_date_time_format(now, "%Y-%m-%dT%H:%M:%S");
  g_autofree char* all =
      g_strdup_printf("%s.%03dZ", seconds, g_date_time_get_microsecond(now) / kMicrosecondsPerMillisecond);
  return all;
}

struct Listeners::All {
  explicit All(const EventSink& sink)
      : com(sink), phone(sink), media(sink), pbap(sink), message(sink), spp(sink), ble(sink) {}

  ComListener com;
  PhoneListener phone;
  MediaListener media;
  PbapListener pbap;
  MessageListener message;
  SppListener spp;
  BleListener ble;
};

Listeners::Listeners(EventSink sink) : m_all(std::make_unique<All>(sink)) {}

Listeners::~Listeners() = default;

}  // namespace btctl
