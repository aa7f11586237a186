#include "btctl/events/ListenerClasses.h"

namespace btctl {

const std::vector<EventDescription>& AllEvents() {
  static const std::vector<EventDescription> events = [] {
    std::vector<EventDescription> all;
    for (const auto& kind : {ComEvents(), PhoneEvents(), MediaEvents(), PbapEvents(), MessageEvents(),
                             SppEvents(), BleEvents()}) {
      all.insert(all.end(), kind.begin(), kind.end());
    }
    return all;
  }();
  return events;
}

}  // namespace btctl
