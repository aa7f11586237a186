#ifndef LIBBTASYNC_CONTEXT_H
#define LIBBTASYNC_CONTEXT_H

#include <glib.h>

namespace btasync {
inline namespace v0 {
namespace detail {

/// Makes a context the thread's default one while it lives: GIO calls back in the one that is it at the call.
class AsDefault {
 public:
  explicit AsDefault(GMainContext* context) {
    GMainContext* const current = g_main_context_get_thread_default();
    if (context != (current != nullptr ? current : g_main_context_default())) {
      m_pushed = context;
      g_main_context_push_thread_default(context);
    }
  }
  AsDefault(const AsDefault&) = delete;
  AsDefault& operator=(const AsDefault&) = delete;
  ~AsDefault() {
    if (m_pushed != nullptr) {
      g_main_context_pop_thread_default(m_pushed);
    }
  }

 private:
  GMainContext* m_pushed = nullptr;
};

}  // namespace detail
}  // namespace v0
}  // namespace btasync

#endif
