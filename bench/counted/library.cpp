// Has the work of the library counted: requests, events, further listeners, the reading of a phone book. To
// be run under callgrind by bt_bench, which provides the responder.

#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtPbap.h>

#include <malloc.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench/book/PhoneBook.h"
#include "bench/book/StringPass.h"
#include "bench/counted/CountedPart.h"
#include "bench/counted/Parts.h"
#include "bench/harness/MeasuredEvents.h"
#include "bench/harness/MeasuredRequests.h"

namespace {

// Whatever is counted was done before: what happens only the first time, such as the binding of symbols, is
// none of its cost.

void CountNothing() {
  const CountedPart part(kNothingPart);
  for (unsigned i = 0; i < kCountedCalls; ++i) {
    Counted([] {});
  }
}

void CountRequest(const MeasuredRequest& request) {
  request.byHand();
  request.throughFacade();
  {
    const CountedPart part(request.name + std::string(kAroundTheCall));
    for (unsigned i = 0; i < kCountedCalls; ++i) {
      Counted(request.throughFacade);
    }
  }
  const CountedPart part(request.name + std::string(kGeneratedCall));
  for (unsigned i = 0; i < kCountedCalls; ++i) {
    request.byHand();
  }
}

void CountEvents(Responder& responder, const Event& event, std::size_t hearers, const char* part) {
  const auto dispatch = [](auto work) { work(); };
  DispatchEvents(responder, event, kCountedEvents, hearers, dispatch);
  DispatchEvents(responder, event, kCountedEvents, hearers, [&](auto work) {
    const CountedPart counted(event.name + std::string(part));
    Counted(work);
  });
}

template <typename Listener>
void CountEvent(Responder& responder, Subscription& subscription, const Event& event) {
  const Listener listener;
  subscription.ToBareHandler(event);
  CountEvents(responder, event, 1, kToBareHandler);
  subscription.ToLibrary();
  CountEvents(responder, event, 1, kToListener);
}

void CountManyListeners(Responder& responder) {
  const std::vector<SignalListener> listeners(1 + kFurtherListeners);
  CountEvents(responder, kSignalEvent, listeners.size(), kToManyListeners);
}

void CountBook() {
  mallopt(M_TRIM_THRESHOLD, 1 << 30);  // the memory of one list is there for the next one's
  PhoneBook list;
  const auto fetch = [&list] { MWPBtPbap().GetContactList(list); };
  fetch();
  {
    const CountedPart part(kBookIntoPreviousList);
    Counted(fetch);
  }
  list.clear();
  {
    const CountedPart part(kBookIntoEmptyList);
    Counted(fetch);
  }
  if (!AreEqual(list, MakeFullBook())) {
    throw std::runtime_error("GetContactList delivers another phone book");
  }
  const CountedPart part(kBookPass);
  Counted(FindEndOfEveryString);
}

void Run() {
  Responder responder;
  if (MWP_CreateBlueTooth() == 0) {
    throw std::runtime_error("the library does not start");
  }
  CountNothing();
  for (const MeasuredRequest& request : {kAcceptCall, kGetPowerStatus, kDisConnect, kConnect}) {
    CountRequest(request);
  }
  CountBook();
  Subscription subscription;
  CountEvent<SignalListener>(responder, subscription, kSignalEvent);
  CountManyListeners(responder);
  CountEvent<PositionListener>(responder, subscription, kPositionEvent);
  CountEvent<ProfileListener>(responder, subscription, kProfileEvent);
  MWP_DestroyBlueTooth();
}

}  // namespace

int main() { return RunCounted("bt_bench_counted_library", Run); }
