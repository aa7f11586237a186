#include <btasync/PollLoop.h>

#include <glib.h>

namespace btasync {
inline namespace v0 {
namespace {

static_assert(sizeof(GPollFD) == sizeof(pollfd), "GLib's descriptors are those of poll()");

constexpr std::size_t kFirstGuess = 4;

}  // namespace

PollLoop::PollLoop() : m_context(g_main_context_new()) { g_main_context_acquire(m_context); }

PollLoop::~PollLoop() {
  g_main_context_release(m_context);
  g_main_context_unref(m_context);
}

void PollLoop::Prepare(std::vector<pollfd>& fds, int& timeoutMs) {
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
  if (timeout >= 0 && (timeoutMs < 0 || timeout < timeoutMs)) {
    timeoutMs = timeout;
  }
}

void PollLoop::Dispatch(const std::vector<pollfd>& fds) {
  auto* const own = reinterpret_cast<GPollFD*>(const_cast<pollfd*>(fds.data() + m_first));
  if (g_main_context_check(m_context, m_priority, own, static_cast<gint>(fds.size() - m_first))) {
    g_main_context_dispatch(m_context);
  }
}

}  // namespace v0
}  // namespace btasync
