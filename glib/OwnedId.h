#ifndef GLIB_OWNEDID_H
#define GLIB_OWNEDID_H

#include <utility>

#include "glib/Owned.h"

// How this tree owns what GLib knows by a number: 0 stands for none.

/// Owns one number, or none, and ends what it stands for with `end`.
template <auto end>
class OwnedId {
 public:
  OwnedId() = default;
  explicit OwnedId(guint id) : m_id(id) {}
  OwnedId(OwnedId&& other) noexcept : m_id(other.release()) {}
  OwnedId& operator=(OwnedId&& other) noexcept {
    reset(other.release());
    return *this;
  }
  ~OwnedId() { reset(); }

  guint get() const { return m_id; }
  explicit operator bool() const { return m_id != 0; }

  void reset(guint id = 0) {
    const guint old = std::exchange(m_id, id);
    if (old != 0) {
      end(old);
    }
  }

  /// Forgets the number: what it stands for has ended by itself, as a source does that is not to go on.
  guint release() { return std::exchange(m_id, 0); }

 private:
  guint m_id = 0;
};

/// What the main loop of the default context looks after: as g_timeout_add() and its like answer it.
using OwnedSourceId = OwnedId<g_source_remove>;

/// Owns a number that an object has given, and ends what it stands for with `end`. Keeps the object until
/// then.
template <typename Object, typename Id, auto end>
class OwnedIdOf {
 public:
  OwnedIdOf() = default;
  OwnedIdOf(Object* object, Id id) : m_object(NewRef(object)), m_id(id) {}
  OwnedIdOf(OwnedIdOf&&) noexcept = default;
  OwnedIdOf& operator=(OwnedIdOf&& other) noexcept {
    OwnedIdOf next(std::move(other));
    std::swap(m_object, next.m_object);
    std::swap(m_id, next.m_id);
    return *this;
  }
  ~OwnedIdOf() { reset(); }

  explicit operator bool() const { return static_cast<bool>(m_object); }

  void reset() {
    if (m_object) {
      end(m_object.get(), m_id);
      m_object.reset();
    }
  }

 private:
  OwnedObject<Object> m_object;
  Id m_id = 0;
};

/// A handler of an object's signal: as g_signal_connect() and its like answer it.
using OwnedHandler = OwnedIdOf<GObject, gulong, g_signal_handler_disconnect>;

#endif
