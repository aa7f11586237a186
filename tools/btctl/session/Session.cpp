#include "btctl/session/Session.h"

#include <atomic>
#include <csignal>
#include <exception>
#include <mutex>
#include <thread>

#include <glib-unix.h>

#include <bluetooth/MWPBluetooth.h>

#include "btctl/bus/Diagnosis.h"
#include "btctl/events/EventHub.h"

namespace btctl {
namespace {

std::mutex startMutex;  // two threads may start the library if the first one was left to itself
std::atomic<bool> isStarted{false};

}  // namespace

Session::Session()
    : m_interrupts(g_unix_signal_add(
          SIGINT,
          [](gpointer self) -> gboolean {
            static_cast<Session*>(self)->Interrupt();
            return G_SOURCE_CONTINUE;
          },
          this)) {}

Session::~Session() {
  m_watch.reset();
  m_events.reset();  // the library is stopped after the last listener is gone
  if (!m_hasLeftThreads && isStarted) {
    MWP_DestroyBlueTooth();
    isStarted = false;
  }
}

EventHub& Session::Events() {
  if (!m_events) {
    m_events = std::make_unique<EventHub>();
  }
  return *m_events;
}

void Session::Start() {
  Ask([] {});
}

void Session::StartLibrary() {
  const std::lock_guard<std::mutex> lock(startMutex);
  if (!isStarted && MWP_CreateBlueTooth() == 0) {
    throw WhyNotStarted();
  }
  isStarted = true;
}

void Session::RunBeside(std::function<void()> task) {
  struct Job {
    std::function<void()> task;
    std::exception_ptr exception;
    std::atomic<bool> isDone{false};
  };
  const auto job = std::make_shared<Job>();
  job->task = std::move(task);
  std::thread thread([job] {
    try {
      job->task();
    } catch (...) {
      job->exception = std::current_exception();
    }
    job->isDone = true;
    g_main_context_wakeup(nullptr);
  });
  try {
    while (!job->isDone) {
      ThrowIfOver();
      g_main_context_iteration(nullptr, TRUE);
    }
  } catch (...) {
    thread.detach();
    m_hasLeftThreads = true;
    throw;
  }
  thread.join();
  if (job->exception != nullptr) {
    std::rethrow_exception(job->exception);
  }
}

/// Made when it is needed first. If the service is gone by then, its first report says so.
void Session::WatchService() {
  if (!m_watch) {
    m_watch.emplace([this](bool isThere) { OnService(isThere); });
  }
}

void Session::WaitUntil(const std::function<bool()>& condition) {
  WatchService();
  while (!condition()) {
    ThrowIfOver();
    if (m_guard) {
      m_guard();
    }
    if (m_isServiceGone && !m_stays) {
      throw ServiceIsGone();
    }
    g_main_context_iteration(nullptr, TRUE);
  }
}

bool Session::WaitUntil(const std::function<bool()>& condition, Milliseconds atMost) {
  const Alarm end(atMost);
  bool isTrue = false;
  WaitUntil([&] { return (isTrue = condition()) || end.HasCome(); });
  return isTrue;
}

void Session::WaitUntil(const std::function<bool()>& condition, const Failure& ifTooLate) {
  try {
    WaitUntil(condition);
  } catch (const Failure& failure) {
    if (failure.Code() != EXIT_TIMED_OUT) {
      throw;
    }
    throw ifTooLate;
  }
}

void Session::DeliverArrived() {
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
}

void Session::Begin(std::optional<Milliseconds> timeout) {
  DeliverArrived();  // what came before is nothing to the command
  m_isInterrupted = false;
  m_stays = false;
  m_deadline.reset();
  if (timeout) {
    m_deadline.emplace(*timeout);
  }
}

void Session::Hasten(Milliseconds atMost) {
  if (!m_deadline || m_deadline->Remaining() > atMost) {
    m_deadline.emplace(atMost);
  }
}

void Session::OnService(bool isThere) {
  const bool wasThere = m_isServiceThere.value_or(isStarted);  // it answers at the start of the library
  const bool isNews = (m_isServiceThere || isStarted) && wasThere != isThere;
  m_isServiceGone = !isThere && (m_isServiceGone || wasThere);
  m_isServiceThere = isThere;
  if (isNews && m_observer) {
    m_observer(isThere);
  }
}

void Session::Interrupt() {
  m_isInterrupted = true;
  if (m_interruptObserver) {
    m_interruptObserver();
  }
}

void Session::ThrowIfOver() const {
  if (m_isInterrupted) {
    throw Failure(EXIT_INTERRUPTED, "interrupted");
  }
  if (m_deadline && m_deadline->HasCome()) {
    throw Failure(EXIT_TIMED_OUT, "the service did not answer in time",
                  "--timeout SECONDS gives it more time.");
  }
}

}  // namespace btctl
