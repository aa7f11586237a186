#ifndef BTASYNC_TESTING_FAKESERVICE_H
#define BTASYNC_TESTING_FAKESERVICE_H

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <btasync/Service.h>

// For the tests of applications. Link libbtasync_testing.a (CMake: libbtasync::testing).

namespace btasync {
inline namespace v0 {

namespace detail {

class FakeBackend;

/// What a fake service does when it gets a request.
struct FakeRule {
  struct Event {
    std::chrono::milliseconds after;
    const EventKind* kind;
    std::shared_ptr<const void> event;
  };

  std::string name;     ///< of the request
  std::string request;  ///< with its arguments, as a text; empty: with any
  bool isOnce = false;
  bool isSpent = false;
  std::chrono::milliseconds delay{0};
  std::vector<Event> events;
  /// Is called when the request arrives; what it gives back ends the call. Null: no answer.
  std::function<std::function<void(PendingCall&)>(const std::string& request)> react;
};

/// A request as a text: DialCall('110',). Throws std::logic_error if it cannot travel.
std::string ToText(const Outgoing& outgoing);

/// Ends a call with an answer of its request's type.
template <typename T>
std::function<void(PendingCall&)> EndWith(Answer<T> answer) {
  return [answer = std::move(answer)](PendingCall& call) {
    Answer<T> given = answer;
    Reply reply;
    reply.answer = &given;
    call.Complete(reply);
  };
}

/// Whether a value can be the answer of a request: of that very type, or a text or a list that becomes one. A
/// number of another kind is most likely a mistake.
template <typename T, typename Value>
inline constexpr bool kMayAnswer = std::is_same_v<T, Value> ||
                                   (std::is_convertible_v<Value, T> && !std::is_arithmetic_v<T>);

/// A value of a type that an argument of a request has, whichever.
template <typename Argument>
std::decay_t<Argument> AnyValue() {
  if constexpr (std::is_same_v<std::decay_t<Argument>, Text>) {
    return Text("");
  } else {
    return std::decay_t<Argument>();
  }
}

}  // namespace detail

/// A function of Service that makes a request: &Service::DialCall.
template <typename T, typename... Arguments>
using RequestFunction = Request<T> (Service::*)(Arguments...);

/// More about what a fake service does with a request. Valid as long as the fake.
template <typename T, typename... Arguments>
class FakeReaction {
 public:
  /// For FakeService, which makes them.
  /// @param service that is asked
  /// @param function makes the request
  /// @param rule what is done with it
  FakeReaction(Service& service, RequestFunction<T, Arguments...> function, detail::FakeRule& rule)
      : m_service(&service), m_function(function), m_rule(&rule) {}

  /// Only for a request with these arguments.
  /// @param arguments all of them
  /// @returns itself, as all of these
  FakeReaction& With(const std::decay_t<Arguments>&... arguments) {
    m_rule->request = detail::ToText((m_service->*m_function)(arguments...).Parts());
    return *this;
  }
  /// Only for the next such request.
  /// @returns itself
  FakeReaction& Once() {
    m_rule->isOnce = true;
    return *this;
  }
  /// The answer comes so long after the request.
  /// @param delay 0 or more
  /// @returns itself
  FakeReaction& After(std::chrono::milliseconds delay) {
    m_rule->delay = delay;
    return *this;
  }
  /// An event comes so long after the request. One that is due when the answer is comes before it, as from
  /// the simulated service. May be called several times.
  /// @param event with its values
  /// @param after 0 or more
  /// @returns itself
  template <typename Event>
  FakeReaction& Emits(Event event, std::chrono::milliseconds after = std::chrono::milliseconds(0)) {
    m_rule->events.push_back(
        {after, &detail::KindOf<Event>(), std::make_shared<const Event>(std::move(event))});
    return *this;
  }

 private:
  Service* m_service;
  RequestFunction<T, Arguments...> m_function;
  detail::FakeRule* m_rule;
};

/// A service in memory, for the tests of what uses a Service: without bus, process, shared memory, main loop
/// or real time.
///
///   FakeService fake;
///   fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
///   fake.WillAccept(&Service::DialCall).Emits(CallStatusChanged{1, BT_CALL_DIALING, 1});
///   PhoneScreen screen(fake);
///   fake.Settle();
///   screen.TypeAndDial("110");
///   fake.Settle();
///   EXPECT_EQ(fake.Requests().back(), "DialCall('110',)");
///   EXPECT_EQ(screen.Shown(), "dialing");
///
/// It is a loop of its own: completions, events and timers run in Advance and Settle, and nowhere else.
/// Neither the functions of a Service nor those below call back.
///
/// What is asked of it in a wrong way throws std::logic_error. A request that nobody has said an answer for
/// fails with Reason::ServiceError, and a detail that says so. Destroy it as a FakeService, not by a pointer
/// to Service.
class FakeService : public Service {
 public:
  /// A service that answers nothing yet.
  /// @param availability what OnAvailability reports first
  explicit FakeService(Availability availability = Availability::Present);

  // ----- Time

  /// Lets time pass, and runs all that becomes due in it, in the order of its time; for the same time, in the
  /// order in which it was asked for. Does not return before nothing is due any more.
  /// @param time 0 or more
  void Advance(std::chrono::milliseconds time);
  /// Runs all that is due now.
  void Settle() { Advance(std::chrono::milliseconds(0)); }

  // ----- Answers. Each holds for all requests of that kind, or as the FakeReaction that is given back is
  // asked to: fake.WillRefuse(&Service::Pair).With(address, PinCode()).Once(). Those that hold once are used
  // first, in the order in which they were said; of the others, the one that was said last. A request that
  // cannot travel fails with InvalidArgument, as always, and is not sent.

  /// The service answers with a value.
  /// @param request such as &Service::GetPowerStatus
  /// @param value of the type that it answers
  /// @returns more about it
  template <typename T, typename... Arguments, typename Value = T>
  FakeReaction<T, Arguments...> WillAnswer(RequestFunction<T, Arguments...> request, Value value) {
    static_assert(detail::kMayAnswer<T, Value>, "this is not what the request answers");
    return WillEndWith(request, Answer<T>(T(std::move(value))));
  }
  /// The service accepts an order.
  /// @param request such as &Service::DialCall
  /// @returns more about it
  template <typename... Arguments>
  FakeReaction<Accepted, Arguments...> WillAccept(RequestFunction<Accepted, Arguments...> request) {
    return WillEndWith(request, Answer<>(Accepted()));
  }
  /// The service refuses.
  /// @param request such as &Service::DialCall
  /// @returns more about it
  template <typename T, typename... Arguments>
  FakeReaction<T, Arguments...> WillRefuse(RequestFunction<T, Arguments...> request) {
    return WillEndWith(request, Answer<T>(Refusal()));
  }
  /// There is no answer, for a reason that a real one may have.
  /// @param request such as &Service::DialCall
  /// @param reason of the failure
  /// @param detail of the failure
  /// @returns more about it
  template <typename T, typename... Arguments>
  FakeReaction<T, Arguments...> WillFail(RequestFunction<T, Arguments...> request, Reason reason,
                                         std::string detail = "FakeService was asked to fail") {
    return WillEndWith(request, Answer<T>(Failure{reason, std::move(detail)}));
  }
  /// The service does not answer: the deadline of the request passes, or the test ends it by AnswerNow.
  /// @param request such as &Service::DialCall
  /// @returns more about it
  template <typename T, typename... Arguments>
  FakeReaction<T, Arguments...> WillHang(RequestFunction<T, Arguments...> request) {
    return {*this, request, AddRule(NameOf(request))};
  }
  /// The handler decides, when the request arrives: Answer<T> handler(const std::string& request), with the
  /// request as Requests() has it. What it emits comes before the answer.
  /// @param request such as &Service::DialCall
  /// @param handler is called for each
  /// @returns more about it
  template <typename T, typename... Arguments, typename Handler>
  FakeReaction<T, Arguments...> WillCall(RequestFunction<T, Arguments...> request, Handler handler) {
    detail::FakeRule& rule = AddRule(NameOf(request));
    rule.react = [handler = std::move(handler)](const std::string& text) mutable {
      return detail::EndWith(Answer<T>(handler(text)));
    };
    return {*this, request, rule};
  }

  /// Answers the oldest request of a kind that waits for its answer. Throws if none does.
  /// @param request such as &Service::DialCall
  /// @param value of the type that it answers, or a Refusal, or a Failure
  template <typename T, typename... Arguments, typename Value = T>
  void AnswerNow(RequestFunction<T, Arguments...> request, Value value) {
    static_assert(
        detail::kMayAnswer<T, Value> || std::is_same_v<Value, Refusal> || std::is_same_v<Value, Failure>,
        "this is not what the request answers");
    if constexpr (std::is_same_v<Value, Refusal> || std::is_same_v<Value, Failure>) {
      EndOldest(NameOf(request), detail::EndWith(Answer<T>(std::move(value))));
    } else {
      EndOldest(NameOf(request), detail::EndWith(Answer<T>(T(std::move(value)))));
    }
  }

  // ----- Events and faults

  /// The service emits an event: fake.Emit(PowerChanged{BT_POWER_ON}). It reaches those who have subscribed
  /// by the time that it is delivered; nobody, if the service is not there by then.
  /// @param event with its values
  template <typename Event>
  void Emit(Event event) {
    EmitLater(detail::KindOf<Event>(), std::make_shared<const Event>(std::move(event)));
  }
  /// Whether anybody has subscribed a kind of event: fake.IsAwaited<PowerChanged>().
  /// @returns true while a subscription of it is alive
  template <typename Event>
  bool IsAwaited() const {
    return IsAwaited(detail::KindOf<Event>());
  }

  /// The service comes or goes, or the bus. When it goes, the requests that wait for their answers fail: with
  /// ServiceGone for Absent and with NoBus for NoBus. New ones fail with NoService and with NoBus. While it
  /// is Unknown, they wait, as before the first connection.
  /// @param availability what there is from now on
  void SetAvailability(Availability availability);
  /// The service hangs: it stays on the bus and takes requests, but answers none and emits nothing.
  void Hang();
  /// It goes on, with the requests that still wait for it and the events that it has not emitted.
  void GoOn();

  // ----- What it was asked for

  /// What has been sent so far, by the names and types of the bus: DialCall('110',), SetPower(byte 0x01,).
  /// @returns the requests in their order; valid until the next one
  const std::vector<std::string>& Requests() const;
  /// Those of Requests() that wait for their answers.
  /// @returns the requests in their order
  std::vector<std::string> UnansweredRequests() const;
  /// Forgets what was sent.
  void ForgetRequests();

 private:
  detail::FakeBackend& Fake() const;

  template <typename T, typename... Arguments>
  std::string NameOf(RequestFunction<T, Arguments...> request) {
    // The request is made, to see its name, and not sent.
    return (this->*request)(detail::AnyValue<Arguments>()...).Parts().Name();
  }
  template <typename T, typename... Arguments>
  FakeReaction<T, Arguments...> WillEndWith(RequestFunction<T, Arguments...> request, Answer<T> answer) {
    detail::FakeRule& rule = AddRule(NameOf(request));
    rule.react = [end = detail::EndWith(std::move(answer))](const std::string&) { return end; };
    return {*this, request, rule};
  }

  detail::FakeRule& AddRule(std::string name);
  void EndOldest(const std::string& name, const std::function<void(detail::PendingCall&)>& end);
  void EmitLater(const detail::EventKind& kind, std::shared_ptr<const void> event);
  bool IsAwaited(const detail::EventKind& kind) const;
};

}  // namespace v0
}  // namespace btasync

#endif
