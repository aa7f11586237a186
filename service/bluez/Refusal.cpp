#include "service/bluez/Refusal.h"

#define MWP_LOG_SOURCE "service/bluez/Refusal"
#include <mwp/MWPLog.h>

namespace btservice::bluez {

bool Refuse(const char* request, const char* reason) {
  MWP_LOG(MWP_LOG_WARNING, "%s is refused: %s", request, reason);
  return false;
}

}  // namespace btservice::bluez
