#include "soak/Requester.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <glib.h>

namespace btsoak {
namespace {

constexpr gint64 kLate = 250000;  ///< microseconds; the service answers within some hundred

/// The calls of the request that this thread makes that have failed, and why the last one did.
thread_local int t_failures = 0;
thread_local std::string t_reason;

/// What the line of a failed call says of the reason; null if it is another line. GetAttribute has one of its
/// own.
const char* ReasonIn(const char* line) {
  constexpr const char* kFailure = "Failed to call dbus method. Reason: ";
  const char* const failure = std::strstr(line, kFailure);
  return failure != nullptr ? failure + std::strlen(kFailure) : std::strstr(line, "Get Failed !!!");
}

GLogWriterOutput NoteFailure(GLogLevelFlags, const GLogField* fields, gsize count, gpointer) {
  for (gsize i = 0; i < count; ++i) {
    if (std::strcmp(fields[i].key, "MESSAGE") == 0 && fields[i].length == -1) {
      const char* const reason = ReasonIn(static_cast<const char*>(fields[i].value));
      if (reason != nullptr) {
        ++t_failures;
        t_reason = reason;
      }
    }
  }
  return G_LOG_WRITER_HANDLED;
}

}  // namespace

void Gate::Enter() {
  std::unique_lock<std::mutex> lock(m_mutex);
  m_changed.wait(lock, [this] { return m_isOpen; });
  ++m_inside;
}

void Gate::Leave() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  --m_inside;
  m_changed.notify_all();
}

void Gate::Close() {
  std::unique_lock<std::mutex> lock(m_mutex);
  m_isOpen = false;
  m_changed.wait(lock, [this] { return m_inside == 0; });
}

void Gate::Open() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_isOpen = true;
  m_changed.notify_all();
}

void WatchLog() { g_log_set_writer_func(NoteFailure, nullptr, nullptr); }

Requester::Requester(const std::vector<KnownRequest>& requests, int perSecond, Gate& gate,
                     RequestCounts& counts)
    : m_requests(requests),
      m_interval(std::chrono::microseconds(std::chrono::seconds(1)) / perSecond),
      m_gate(gate),
      m_counts(counts),
      m_thread([this] { Run(); }) {}

Requester::~Requester() {
  m_isEnding = true;
  m_thread.join();
}

void Requester::Run() {
  auto next = std::chrono::steady_clock::now();
  while (true) {
    for (const KnownRequest& request : m_requests) {
      for (int i = 0; i < request.times; ++i) {
        if (m_isEnding) {
          return;
        }
        m_gate.Enter();
        Make(request);
        ReadSharedMemory();
        m_counts.reads += 2;
        m_gate.Leave();
        // What was missed while the service did not answer is not made up for.
        next = std::max(next + m_interval, std::chrono::steady_clock::now());
        std::this_thread::sleep_until(next);
      }
    }
  }
}

void Requester::Make(const KnownRequest& request) {
  t_failures = 0;
  const gint64 begin = g_get_monotonic_time();
  const std::string answer = request.ask();
  const gint64 end = g_get_monotonic_time();
  ++m_counts.calls;
  if (end - begin >= kLate) {
    ++m_counts.late;
  }
  if (t_failures > 0) {
    ++m_counts.failed;
    std::printf("failed %" G_GINT64_FORMAT " %" G_GINT64_FORMAT " %s: %s\n", begin, end, request.name,
                t_reason.c_str());
  }
  const bool isRight = t_failures == 0 ? std::count(request.right.begin(), request.right.end(), answer) == 1
                                       : t_failures == 1 && answer == request.failed;
  if (!isRight) {
    std::printf("wrong %s answered '%s', with %d failures in the log\n", request.name, answer.c_str(),
                t_failures);
  }
}

}  // namespace btsoak
