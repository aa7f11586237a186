#ifndef MWP_MWPSTANDIN_H
#define MWP_MWPSTANDIN_H

#include <functional>

#include <mwp/MWPSource.h>

/// What the stand-in of the platform offers to tests and demos beyond the head unit's own interfaces. The
/// library never uses it.
namespace MWPStandIn {

/// One call of the audio source manager.
struct SourceCall {
  enum Kind { REQUEST, ACTIVE_CONFIRM, DEACTIVE_CONFIRM } kind;
  int source;
  int argument;  ///< gain type of a request, confirmation of the others
};

/// Lets observer see every further call of the audio source manager, on the thread that makes it; an empty
/// function ends that.
void ObserveSourceCalls(std::function<void(const SourceCall&)> observer);

}  // namespace MWPStandIn

#endif
