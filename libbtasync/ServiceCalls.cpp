// Of calls the requests that are not derived from Service.h.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

Request<std::string> Service::GetOwnNumber() {
  return wire::AskForChecked<std::string, wire::GetCurrentMobilePhoneNumber>(*this);
}

Request<ConnectionState> Service::GetPhoneConnectionState() {
  return {wire::Prepare<wire::GetPhoneConnectionState>(End()),
          &wire::Structure<wire::GetPhoneConnectionState, ConnectionState>};
}

}  // namespace v0
}  // namespace btasync
