#ifndef TESTS_CONTRACT_EVENTCASES_H
#define TESTS_CONTRACT_EVENTCASES_H

#include <functional>
#include <string>
#include <vector>

#include "libbluetooth/MWPBtClient.h"

namespace bttest {

/// One event method of the client, called with given values.
struct EventCase {
  std::string name;
  MWPBtListenerType kind;  ///< of the listeners that receive it
  std::function<void(MWPBtClient&)> call;
  std::vector<std::string> values;  ///< what a listener then notes (see RecordingListeners.h)
};

/// All event methods that have listeners.
const std::vector<EventCase>& EventCases();

}  // namespace bttest

#endif
