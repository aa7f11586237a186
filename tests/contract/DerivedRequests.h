#ifndef TESTS_CONTRACT_DERIVEDREQUESTS_H
#define TESTS_CONTRACT_DERIVEDREQUESTS_H

#include <functional>
#include <set>
#include <string>
#include <vector>

#include <bluetooth/MWPBtCom.h>

#include "contract/RequestCases.h"

// Requests whose cases nobody has to write: the values come from the interface description, the methods from
// the headers of the facades.

namespace bttest {

/// A case for each method of the interface that a facade offers under the same name: with ordinary values,
/// which arrive as they are, and an answer that is the service's. What does more than that needs a case of
/// its own in RequestCases*.cpp, and is left out here if `written` has its name.
std::vector<RequestCase> DerivedRequests(const std::set<std::string>& written);

/// "MWPBtCom::SetPower": all methods of the facades.
std::set<std::string> OfferedMethods();

/// The names of the methods of the interface that a facade offers under the same name.
std::set<std::string> OfferedUnderTheirName();

/// A method of MWPBtCom that checks its address, which is its first argument.
struct CheckedMethod {
  std::string name;
  /// Calls it with ordinary values behind the address. What it answers; 0 if it answers nothing.
  std::function<int(MWPBtCom& com, const std::string& address)> call;
};

/// All methods of MWPBtCom whose first parameter is called address, but those that leave the check to the
/// service.
std::vector<CheckedMethod> MethodsThatCheckTheirAddress();
/// Those that leave it to the service. They are as they are; no new request should be among them.
const std::set<std::string>& MethodsThatDoNotCheckTheirAddress();

}  // namespace bttest

#endif
