// What an event costs a client with a listener, next to a bare handler of the generated proxy's GObject
// signal.
//
// The events of a round are all there, waiting in the main context, before the clock starts: what is measured
// is their dispatch, from the body of the D-Bus message to the listener.

#include <vector>

#include "bench/harness/Clocks.h"
#include "bench/harness/MeasuredEvents.h"
#include "bench/harness/Rounds.h"
#include "bench/sections/Sections.h"

namespace {

constexpr std::size_t kRounds = 201;
constexpr unsigned kEvents = 400;  // in each round
constexpr double kLimit = 1.05;
constexpr std::size_t kFurtherListeners = 100;
constexpr double kLimitOfFurtherListener = 20;  // nanoseconds

/// The processor time that one event costs the thread that dispatches it. Every event is heard `hearers`
/// times.
double CostOfEvent(Responder& responder, const Event& event, std::size_t hearers) {
  double cost = 0;
  DispatchEvents(responder, event, kEvents, hearers,
                 [&cost](auto dispatch) { cost = Cost(CLOCK_THREAD_CPUTIME_ID, dispatch); });
  return cost / kEvents;
}

template <typename Listener>
void CompareWithBareHandler(Report& report, Responder& responder, Subscription& subscription,
                            const Event& event) {
  const Listener listener;
  const Rounds rounds = RunInTurn({{"bare handler",
                                    [&] {
                                      subscription.ToBareHandler(event);
                                      return CostOfEvent(responder, event, 1);
                                    }},
                                   {"listener",
                                    [&] {
                                      subscription.ToLibrary();
                                      return CostOfEvent(responder, event, 1);
                                    }}},
                                  kRounds);
  report.Add({event.name, Microseconds(rounds.Median(1)), "a bare handler", Microseconds(rounds.Median(0)),
              Times(rounds.Ratio(1)), kLimit});
}

void MeasureFurtherListeners(Report& report, Responder& responder, const Event& event) {
  const SignalListener first;
  const Rounds rounds = RunInTurn({{"one listener", [&] { return CostOfEvent(responder, event, 1); }},
                                   {"101 listeners",
                                    [&] {
                                      const std::vector<SignalListener> further(kFurtherListeners);
                                      return CostOfEvent(responder, event, 1 + kFurtherListeners);
                                    }}},
                                  kRounds);
  report.Add({"with 100 further listeners, each of them",
              Microseconds(rounds.Median(1)),
              "one listener",
              Microseconds(rounds.Median(0)),
              {rounds.Difference(1, 0) / kFurtherListeners * 1e9, "ns"},
              kLimitOfFurtherListener});
}

}  // namespace

void MeasureEvents(Report& report, Responder& responder) {
  report.BeginSection("events", "processor time of the client's thread for one event, heard by one listener");
  Subscription subscription;
  CompareWithBareHandler<SignalListener>(report, responder, subscription, kSignalEvent);
  CompareWithBareHandler<PositionListener>(report, responder, subscription, kPositionEvent);
  CompareWithBareHandler<ProfileListener>(report, responder, subscription, kProfileEvent);
  subscription.ToLibrary();
  MeasureFurtherListeners(report, responder, kSignalEvent);
}
