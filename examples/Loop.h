#ifndef EXAMPLES_LOOP_H
#define EXAMPLES_LOOP_H

#include <bluetooth/MWPBluetooth.h>
#include <glib.h>

#include <cstdio>

/// A main loop for a program that does all on one thread: events arrive in it, and requests are made in the
/// callbacks. Each request holds the loop until the service has answered, which is well for a small program.
class Loop {
 public:
  Loop() : m_loop(g_main_loop_new(nullptr, FALSE)) {}
  ~Loop() { g_main_loop_unref(m_loop); }
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  /// Runs until End is called, or for so many seconds. True if End was called with true.
  bool Run(unsigned seconds) {
    const guint timeout = g_timeout_add_seconds(seconds, OnTimeout, this);
    g_main_loop_run(m_loop);
    g_source_remove(timeout);
    return m_hasWorked;
  }

  void End(bool hasWorked) {
    m_hasWorked = hasWorked;
    g_main_loop_quit(m_loop);
  }

 private:
  static gboolean OnTimeout(gpointer self) {
    std::fprintf(stderr, "not all that was expected has come: giving up\n");
    static_cast<Loop*>(self)->End(false);
    return G_SOURCE_CONTINUE;  // Run removes it
  }

  GMainLoop* const m_loop;
  bool m_hasWorked = false;
};

#endif
