#ifndef TOOLS_BTCTL_SESSION_SOURCE_H
#define TOOLS_BTCTL_SESSION_SOURCE_H

#include <glib.h>

namespace btctl {

/// Something that the main loop looks after; it ends with the object.
class Source {
 public:
  /// As the functions of GLib return it that add one.
  explicit Source(guint id) : m_id(id) {}
  ~Source() { g_source_remove(m_id); }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

 private:
  const guint m_id;
};

}  // namespace btctl

#endif
