#include "libbtasync/TablePlan.h"

#include <cstdint>
#include <string>
#include <utility>

#include "libbtasync/BusBackend.h"
#include "libbtasync/Step.h"
#include "libbtasync/Wire.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr int kMostLooks = 10;
constexpr std::chrono::milliseconds kNextTurn{0};
constexpr std::chrono::milliseconds kBetweenLooks{2};

/// A request for a table that is under way. Belongs to its call: it goes when the call ends.
class TableJob final : public Held {
 public:
  /// Takes over a reference of the call.
  TableJob(BusBackend& backend, const TablePlan& plan, int timeoutMs, PendingCall& call)
      : m_alive(backend),
        m_backend(backend),
        m_name(plan.Name()),
        m_call(call),
        m_looks(plan.NewLooks()),
        m_deadlineMs(backend.TimeMs() + timeoutMs),
        m_deadline(backend),
        m_next(backend) {
    m_deadline.Start(std::chrono::milliseconds(timeoutMs),
                     [this] { Fail(Reason::TimedOut, "the deadline has passed"); });
    m_next.Start(kNextTurn, [this] { Begin(); });
  }
  void Drop() override { delete this; }

 private:
  ~TableJob() override { m_call.Unref(); }

  /// What the memory says is void without a service: it may have been left behind.
  void Begin() {
    switch (m_backend.Now()) {
      case Availability::Unknown:
        AwaitAvailability();
        break;
      case Availability::NoBus:
        Fail(Reason::NoBus, "there is no connection to a session bus");
        break;
      case Availability::Absent:
        Fail(Reason::NoService, "nobody on the bus is the Bluetooth service");
        break;
      case Availability::Present:
        BeginWithService();
        break;
    }
  }

  /// A service takes its name before it puts right what one before it has left in memory. It answers after
  /// that.
  void BeginWithService() {
    if (m_backend.HasAnswered()) {
      LookFirst(kNextTurn);
      return;
    }
    const std::chrono::milliseconds left(m_deadlineMs - m_backend.TimeMs());
    m_step.Ask(wire::Prepare<wire::GetPowerStatus>(m_backend), left, [this](Reply& reply) {
      if (reply.values != nullptr) {
        LookFirst(kNextTurn);
      } else {
        Finish(reply);
      }
    });
  }

  void AwaitAvailability() {
    const auto onChange = [this](Availability) {
      m_next.Start(kNextTurn, [this] {
        m_awaited.Clear();
        Begin();
      });
    };
    auto* const change = new EventSubscription<Availability, decltype(onChange)>(std::move(onChange));
    m_awaited.Hold(*change);
    m_backend.Subscribe(KindOf<Availability>(), *change);
  }

  void LookFirst(std::chrono::milliseconds pause) {
    m_looks->LookFirst();
    m_next.Start(pause, [this] { LookAgain(); });
  }

  void LookAgain() {
    ++m_count;
    ListQuestion question;
    question.isLastLook = m_count == kMostLooks;
    m_looks->LookAgain(question);
    if (m_looks->HasFailed() && !question.isLastLook) {
      LookFirst(kBetweenLooks);
      return;
    }
    Reply reply;
    m_looks->PutInto(reply);
    Finish(reply);
  }

  void Fail(Reason reason, const char* why) {
    Reply reply;
    reply.failure = Failure{reason, std::string(m_name) + ": " + why};
    Finish(reply);
  }

  /// Ends the request, and this.
  void Finish(Reply& reply) {
    const std::unique_ptr<ListLooks> lender = std::move(m_looks);
    PendingCall& call = m_call;
    call.Ref();
    call.SetWork(nullptr);
    delete this;
    call.Complete(reply);
    call.Unref();
  }

  const BackendRef m_alive;
  BusBackend& m_backend;
  const char* const m_name;
  PendingCall& m_call;
  std::unique_ptr<ListLooks> m_looks;
  int m_count = 0;
  const std::int64_t m_deadlineMs;
  Step m_step;
  Timer m_deadline;
  Timer m_next;
  Scope m_awaited;
};

}  // namespace

void TablePlan::Start(BusBackend& backend, _GVariant*, int timeoutMs, PendingCall& call) const {
  call.SetWork(new TableJob(backend, *this, timeoutMs, call));
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
