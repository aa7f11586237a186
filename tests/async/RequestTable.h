#ifndef TESTS_ASYNC_REQUESTTABLE_H
#define TESTS_ASYNC_REQUESTTABLE_H

#include <functional>
#include <string>
#include <vector>

#include <btasync/Service.h>

#include "glib/Owned.h"

// All members of Service that make one service call, as a table: values for their parameters are made from
// their types, and what belongs on the bus from the interface description.

namespace bttest {

/// What a request came to, whatever its type.
struct Outcome {
  enum Kind { ACCEPTED, REFUSED, FAILED };
  Kind kind = FAILED;
  std::vector<std::string> values;  ///< of an accepted one, as ValueText
  btasync::Failure failure = {};
};

bool operator==(const Outcome& one, const Outcome& other);
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

/// Asks with one argument that cannot travel.
struct UnfitCall {
  std::string what;  ///< such as "parameter 1: a NUL inside"
  std::function<Outcome(btasync::Service&)> ask;
};

struct RequestRow {
  std::string member;  ///< of Service
  std::string method;  ///< of the service, by the comment in the header
  /// Asks with values of a variety (kVarieties of contract/WireValues.h), and runs the loop until the answer.
  std::function<Outcome(btasync::Service&, int variety)> ask;
  /// What has to arrive at the service then, a tuple. Throws if the parameters are not the method's
  /// arguments.
  std::function<OwnedVariant(int variety)> arguments;
  /// What a reply of the service, a tuple, has to come to.
  std::function<Outcome(GVariant* reply)> expected;
  /// One call for each parameter and each thing that it must not be.
  std::function<std::vector<UnfitCall>()> unfit;
};

const std::vector<RequestRow>& RequestTable();

}  // namespace bttest

#endif
