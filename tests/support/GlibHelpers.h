#ifndef TESTS_SUPPORT_GLIBHELPERS_H
#define TESTS_SUPPORT_GLIBHELPERS_H

#include <stdexcept>
#include <string>

#include "glib/OwnedBus.h"

namespace bttest {

/// The value as GVariant text, with the types that the text alone would leave open.
inline std::string ToText(GVariant* value) { return OwnedText(g_variant_print(value, TRUE)).get(); }

/// Throws what a call of GLib has put into `error`, if anything.
inline void ThrowIfSet(const OwnedError& error, const std::string& doing) {
  if (error) {
    throw std::runtime_error(doing + ": " + error->message);
  }
}

}  // namespace bttest

#endif
