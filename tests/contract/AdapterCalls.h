#ifndef TESTS_CONTRACT_ADAPTERCALLS_H
#define TESTS_CONTRACT_ADAPTERCALLS_H

#include <functional>
#include <map>
#include <string>

#include "contract/WireValues.h"
#include "ipc/BtClientIpcAdapter.h"

namespace bttest {

/// Calls the adapter's request for a method with arguments in the method's order, and collects the answer.
using AdapterCall = std::function<void(BtClientIpcAdapter& adapter, const In& in, Out& out)>;

/// The adapter's requests by the name of the method that they call.
const std::map<std::string, AdapterCall>& AdapterCalls();

}  // namespace bttest

#endif
