#include <mwp/MWPSource.h>

#include <mutex>
#include <utility>

#include <mwp/MWPLog.h>
#include <mwp/MWPStandIn.h>

#define MWP_LOG_SOURCE "platform/MWPSource"

namespace {

using MWPStandIn::SourceCall;
using Observer = std::function<void(const SourceCall&)>;

struct ObserverSlot {
  std::mutex mutex;
  Observer observer;
};

/// Never deleted: applications may still confirm a source from their static destructors.
ObserverSlot& Slot() {
  static ObserverSlot* const slot = new ObserverSlot;
  return *slot;
}

int Report(const SourceCall& call) {
  Observer observer;
  {
    std::lock_guard<std::mutex> lock(Slot().mutex);
    observer = Slot().observer;
  }
  // Outside the lock, so that an observer may call the source manager or replace itself.
  if (observer) {
    observer(call);
  }
  return 0;
}

}  // namespace

int MWPSource::Request(int source, AudioGainType gain) {
  MWP_LOG(MWP_LOG_DEBUG, "source:%d gain:%d", source, static_cast<int>(gain));
  return Report({SourceCall::REQUEST, source, gain});
}

int MWPSource::ActiveSourceConfirm(int source, int confirmation) {
  MWP_LOG(MWP_LOG_DEBUG, "source:%d confirmation:%d", source, confirmation);
  return Report({SourceCall::ACTIVE_CONFIRM, source, confirmation});
}

int MWPSource::DeactiveSourceConfirm(int source, int confirmation) {
  MWP_LOG(MWP_LOG_DEBUG, "source:%d confirmation:%d", source, confirmation);
  return Report({SourceCall::DEACTIVE_CONFIRM, source, confirmation});
}

void MWPStandIn::ObserveSourceCalls(std::function<void(const SourceCall&)> observer) {
  // The swapped-out observer is destroyed by the parameter, after the lock is released.
  std::lock_guard<std::mutex> lock(Slot().mutex);
  std::swap(Slot().observer, observer);
}
