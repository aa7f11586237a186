#ifndef TOOLS_BTCTL_SIM_VARIANTS_H
#define TOOLS_BTCTL_SIM_VARIANTS_H

#include <memory>
#include <string>

#include <glib.h>

#include "btctl/base/Json.h"

namespace btctl {

struct UnrefVariant {
  void operator()(GVariant* value) const { g_variant_unref(value); }
};
/// A value that is owned, not floating.
using VariantPtr = std::unique_ptr<GVariant, UnrefVariant>;

/// A value of that type from what is written on the command line: texts as they are, switches as words, bytes
/// in hexadecimal digits, and the rest as GLib writes it, such as "[<1>, <'two'>]". Throws a Failure that
/// names the argument.
VariantPtr ToVariant(const std::string& text, const char* type, const std::string& argument);

Json ToJson(GVariant* value);

}  // namespace btctl

#endif
