#include <btasync/PollLoop.h>

#include <cstring>

#include <glib.h>

#include "glib/Owned.h"
#include "libbtasync/Log.h"

namespace btasync {
inline namespace v0 {
namespace {

static_assert(sizeof(GPollFD) == sizeof(pollfd), "GLib's descriptors are those of poll()");

constexpr std::size_t kFirstGuess = 4;

}  // namespace

PollLoop::PollLoop() : m_context(g_main_context_new()), m_thread(pthread_self()) {
  g_main_context_acquire(m_context);
}

bool PollLoop::IsOwnThread(const char* what) const {
  if (pthread_equal(m_thread, pthread_self())) {
    return true;
  }
  detail::LogForeignThread(what);
  return false;
}

PollLoop::~PollLoop() {
  if (!IsOwnThread("the end of a poll loop")) {
    return;  // the context stays: its thread may be in it
  }
  g_main_context_release(m_context);
  const OwnedMainContext last(m_context);  // its header knows nothing of GLib
}

void PollLoop::Prepare(std::vector<pollfd>& fds, int& timeoutMs) {
  if (!IsOwnThread("what to poll")) {
    return;
  }
  g_main_context_prepare(m_context, &m_priority);
  m_first = fds.size();
  std::size_t room = kFirstGuess;
  std::size_t needed = 0;
  int timeout = -1;
  for (;;) {
    fds.resize(m_first + room);
    needed = static_cast<std::size_t>(g_main_context_query(m_context, m_priority, &timeout,
                                                           reinterpret_cast<GPollFD*>(fds.data() + m_first),
                                                           static_cast<gint>(room)));
    if (needed <= room) {
      break;
    }
    room = needed;
  }
  fds.resize(m_first + needed);
  m_count = needed;
  if (timeout >= 0 && (timeoutMs < 0 || timeout < timeoutMs)) {
    timeoutMs = timeout;
  }
}

void PollLoop::Dispatch(const std::vector<pollfd>& fds) {
  if (!IsOwnThread("what has been polled")) {
    return;
  }
  std::vector<GPollFD> own(m_count);
  if (fds.size() >= m_first + m_count) {
    std::memcpy(own.data(), fds.data() + m_first, m_count * sizeof(GPollFD));
  } else {
    detail::LogWarning("what has been polled is not what was to be polled: taken for nothing");
  }
  if (g_main_context_check(m_context, m_priority, own.data(), static_cast<gint>(m_count))) {
    g_main_context_dispatch(m_context);
  }
}

}  // namespace v0
}  // namespace btasync
