#ifndef TOOLS_BTCTL_COMMANDS_CAUSES_H
#define TOOLS_BTCTL_COMMANDS_CAUSES_H

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "btctl/base/Failure.h"
#include "btctl/commands/Argument.h"

// Why the service refused a request. Its answer is a bare no, so the state that the request needs is asked
// for afterwards, never before: a request that is accepted costs no more than itself.

namespace btctl {

/// What stood in the way of a request.
struct Cause {
  std::string word;     ///< for programs: "adapter-off"
  std::string message;  ///< what is added to "the service refused: "
  std::string hint;     ///< what to do next; may be empty
};

class Inquiry;
class Session;

/// Finds out whether something stood in the way. Throws a Failure if that cannot be found out.
using Check = std::function<std::optional<Cause>(Inquiry&)>;
using Checks = std::vector<Check>;

// Arguments of a command are given by their place.
Check AdapterIsOff();
Check DeviceIsUnknown(std::size_t address);
/// For a profile, or for the one that an argument names.
Check DeviceIsNotConnected(std::size_t address, const std::string& profile);
Check DeviceIsNotConnected(std::size_t address, std::size_t profile);
Check NoPhoneIsConnected();
Check NoPlayerIsConnected();
Check PairingIsUnderWay();
Check NoPairingIsUnderWay(std::size_t address);
/// Only of a device that is connected is it known.
Check DeviceIsPairedAlready(std::size_t address);
Check SearchIsRunning();
Check NoSearchIsRunning();
Check DownloadIsUnderWay();
Check NoDownloadIsUnderWay();
/// No call has any of these states; no state means that there is no call at all.
Check NoCallIs(std::vector<std::string> states);
Check NoContactHasId(std::size_t id);
Check NoLogEntryHasId(std::size_t id);
/// Nothing is asked: the library itself refuses.
Check NotSupportedYet(const std::string& what);

/// The refusal with the first cause that is found, and without one if none is. Takes at most two seconds.
Failure Explained(const Failure& refusal, Session& session, const Checks& checks, const Given& given);

}  // namespace btctl

#endif
