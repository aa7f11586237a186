#include "btctl/events/Listeners.h"

#include "btctl/events/ListenerClasses.h"
#include "glib/Owned.h"

namespace btctl {

std::string Reporter::Now() {
  constexpr int kMicrosecondsPerMillisecond = 1000;
  const OwnedDateTime now(g_date_time_new_now_utc());
  const OwnedText seconds(g_date_time_format(now.get(), "%Y-%m-%dT%H:%M:%S"));
  const int milliseconds = g_date_time_get_microsecond(now.get()) / kMicrosecondsPerMillisecond;
  return OwnedText(g_strdup_printf("%s.%03dZ", seconds.get(), milliseconds)).get();
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
