#include "contract/RequestCases.h"

namespace bttest {

std::vector<RequestCase> AllRequests() {
  std::vector<RequestCase> all;
  for (const auto& part : {ComRequests(), PhoneRequests(), MediaRequests(), PbapRequests(), MessageRequests(),
                           SppRequests(), BleRequests()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

}  // namespace bttest
