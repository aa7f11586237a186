// The requests that pass their arguments on to one service call and answer the one value that it answers:
// nearly all. Service.h has all that there is to say about them, so service_requests.py derives their
// definitions from it, as lines
//   Request<> Service::DisableProfiles(const Address& address) { return
//   wire::Ask<wire::DisableProfile>(*this, address); }
// Whether arguments and answer fit the interface is checked when these lines are compiled. A request that
// does more is defined in one of the other sources, and then not here.

#include "libbtasync/MakeRequest.h"

namespace btasync {
inline namespace v0 {

#include "ServiceRequests.inc"

}  // namespace v0
}  // namespace btasync
