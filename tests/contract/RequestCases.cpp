#include "contract/RequestCases.h"

#include <set>

#include "contract/DerivedRequests.h"

namespace bttest {

std::vector<RequestCase> AllRequests() {
  std::vector<RequestCase> all;
  for (const auto& part : {ComRequests(), PhoneRequests(), MediaRequests(), PbapRequests(), MessageRequests(),
                           SppRequests(), BleRequests()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  std::set<std::string> written;
  for (const RequestCase& request : all) {
    written.insert(request.name);
    written.insert(request.wire.substr(0, request.wire.find('(')));
  }
  for (const char* const tested : {"GetCapability", "SetPower"}) {
    written.insert(tested);
  }
  const std::vector<RequestCase> derived = DerivedRequests(written);
  all.insert(all.end(), derived.begin(), derived.end());
  return all;
}

}  // namespace bttest
