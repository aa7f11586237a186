#ifndef TESTS_SUPPORT_GLIBPOINTERS_H
#define TESTS_SUPPORT_GLIBPOINTERS_H

#include <memory>
#include <stdexcept>
#include <string>

#include <gio/gio.h>

namespace bttest {

/// Releases with the function given as template argument.
template <auto release>
struct Releaser {
  template <typename T>
  void operator()(T* object) const {
    release(object);
  }
};

using VariantPtr = std::unique_ptr<GVariant, Releaser<g_variant_unref>>;
using ConnectionPtr = std::unique_ptr<GDBusConnection, Releaser<g_object_unref>>;
using MessagePtr = std::unique_ptr<GDBusMessage, Releaser<g_object_unref>>;
using NodeInfoPtr = std::unique_ptr<GDBusNodeInfo, Releaser<g_dbus_node_info_unref>>;
using CharPtr = std::unique_ptr<char, Releaser<g_free>>;

/// Owns value, which may be floating.
inline VariantPtr Own(GVariant* value) { return VariantPtr(g_variant_take_ref(value)); }

/// The value as GVariant text, with the types that the text alone would leave open.
inline std::string ToText(GVariant* value) { return CharPtr(g_variant_print(value, TRUE)).get(); }

/// For the last argument of a GLib call: collects its error and throws it, if there is one.
class ErrorCollector {
 public:
  ErrorCollector() = default;
  ErrorCollector(const ErrorCollector&) = delete;
  ErrorCollector& operator=(const ErrorCollector&) = delete;
  ~ErrorCollector() { g_clear_error(&m_error); }

  operator GError**() { return &m_error; }

  void ThrowIfSet(const std::string& doing) const {
    if (m_error != nullptr) {
      throw std::runtime_error(doing + ": " + m_error->message);
    }
  }

 private:
  GError* m_error = nullptr;
};

}  // namespace bttest

#endif
