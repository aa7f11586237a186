#ifndef GLIB_OWNED_H
#define GLIB_OWNED_H

#include <cstddef>
#include <type_traits>
#include <utility>

#include <glib-object.h>

// How this tree owns what GLib makes: one class, with the function of GLib's that releases each kind of
// thing.

/// Owns one thing of GLib's, or nothing, and releases it with `destroy`. It is used like a std::unique_ptr,
/// and its Out() is an argument for the functions that hand their result or their error out.
template <typename T, auto destroy>
class Owned {
 public:
  Owned() = default;
  Owned(std::nullptr_t) {}
  /// Takes over the caller's reference. A variant may be floating, as a function has just made it: it is
  /// sunk.
  explicit Owned(T* object) : m_object(TakeOver(object)) {}
  Owned(Owned&& other) noexcept : m_object(other.release()) {}
  Owned& operator=(Owned&& other) noexcept {
    reset(other.release());
    return *this;
  }
  ~Owned() { reset(); }

  T* get() const { return m_object; }
  T* operator->() const { return m_object; }
  explicit operator bool() const { return m_object != nullptr; }

  /// Releases what it owns, and takes over `object` as the constructor does.
  void reset(T* object = nullptr) {
    T* const old = std::exchange(m_object, TakeOver(object));
    if (old != nullptr) {
      destroy(old);
    }
  }

  /// Gives the caller what it owns.
  [[nodiscard]] T* release() { return std::exchange(m_object, nullptr); }

  /// For a function to put what it makes: the place of a result, or the GError** that comes last. What was
  /// owned before is released.
  T** Out() {
    reset();
    return &m_object;
  }

 private:
  static T* TakeOver(T* object) {
    if constexpr (std::is_same_v<T, GVariant>) {
      return object != nullptr ? g_variant_take_ref(object) : nullptr;
    } else {
      return object;
    }
  }

  T* m_object = nullptr;
};

template <typename T, auto destroy>
bool operator==(const Owned<T, destroy>& owned, std::nullptr_t) {
  return !owned;
}
template <typename T, auto destroy>
bool operator!=(const Owned<T, destroy>& owned, std::nullptr_t) {
  return static_cast<bool>(owned);
}

/// A GObject: a connection, a proxy, a message, a process.
template <typename Object>
using OwnedObject = Owned<Object, g_object_unref>;
/// Memory that is given back with g_free().
template <typename T>
using OwnedMemory = Owned<T, g_free>;
/// The class of a type: GObjectClass, or that of a subtype.
template <typename Class>
using OwnedTypeClass = Owned<Class, g_type_class_unref>;
using OwnedClosure = Owned<GClosure, g_closure_unref>;
using OwnedText = OwnedMemory<char>;
using OwnedTexts = Owned<char*, g_strfreev>;
using OwnedError = Owned<GError, g_error_free>;

using OwnedVariant = Owned<GVariant, g_variant_unref>;
using OwnedVariantIter = Owned<GVariantIter, g_variant_iter_free>;
using OwnedVariantType = Owned<GVariantType, g_variant_type_free>;
using OwnedBytes = Owned<GBytes, g_bytes_unref>;

using OwnedMainContext = Owned<GMainContext, g_main_context_unref>;
using OwnedMainLoop = Owned<GMainLoop, g_main_loop_unref>;
/// Of a source that is attached to a context the context keeps a reference of its own, until it is destroyed.
using OwnedSource = Owned<GSource, g_source_unref>;

using OwnedIoChannel = Owned<GIOChannel, g_io_channel_unref>;

using OwnedDateTime = Owned<GDateTime, g_date_time_unref>;
using OwnedKeyFile = Owned<GKeyFile, g_key_file_unref>;
/// Of characters, from g_iconv_open().
using OwnedConverter = Owned<std::remove_pointer_t<GIConv>, g_iconv_close>;
using OwnedOptionContext = Owned<GOptionContext, g_option_context_free>;

/// A further reference to an object that somebody else owns.
template <typename Object>
OwnedObject<Object> NewRef(Object* object) {
  return OwnedObject<Object>(static_cast<Object*>(g_object_ref(object)));
}
/// A reference to a variant that was passed in: its floating one if it floats, else a further one. So do the
/// functions of GLib that take floating variants.
inline OwnedVariant NewRef(GVariant* variant) { return OwnedVariant(g_variant_ref_sink(variant)); }

#endif
