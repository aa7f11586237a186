#include "libbtasync/TablePlan.h"

#include <utility>

#include "libbtasync/PlanJob.h"
#include "libbtasync/Step.h"
#include "libbtasync/Wire.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr int kMostLooks = 10;
constexpr std::chrono::milliseconds kNextTurn{0};
constexpr std::chrono::milliseconds kBetweenLooks{2};

/// A request for a table that is under way.
class TableJob final : public PlanJob {
 public:
  /// Takes over a reference of the call.
  TableJob(BusBackend& backend, const TablePlan& plan, int timeoutMs, PendingCall& call)
      : PlanJob(backend, plan.Name(), timeoutMs, call), m_looks(plan.NewLooks()), m_next(backend) {
    m_next.Start(kNextTurn, [this] { Begin(); });
  }

 private:
  ~TableJob() override = default;

  void OnDeadline() override { Fail(Reason::TimedOut, "the deadline has passed"); }

  /// What the memory says is void without a service: it may have been left behind.
  void Begin() {
    switch (Bus().Now()) {
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
    if (Bus().HasAnswered()) {
      LookFirst(kNextTurn);
      return;
    }
    m_step.Ask(wire::Prepare<wire::GetPowerStatus>(Bus()), TimeLeft(), [this](Reply& reply) {
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
    Bus().Subscribe(KindOf<Availability>(), *change);
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
    Finish(reply, m_looks);
  }

  const std::shared_ptr<ListLooks> m_looks;
  int m_count = 0;
  Step m_step;
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
