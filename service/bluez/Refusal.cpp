#include "service/bluez/Refusal.h"

#define MWP_LOG_SOURCE "service/bluez/Refusal"
#include <mwp/MWPLog.h>

#include "service/files/Quote.h"

namespace btservice::bluez {

bool Refuse(const char* request, const char* reason) {
  MWP_LOG(MWP_LOG_WARNING, "%s is refused: %s", request, reason);
  return false;
}

bool HasFailed(const char* what, const Reply& reply) {
  if (!reply.Worked()) {
    MWP_LOG(MWP_LOG_WARNING, "%s: %s", what, Visible(reply.error).c_str());
  }
  return !reply.Worked();
}

}  // namespace btservice::bluez
