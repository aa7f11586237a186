#ifndef TOOLS_BTCTL_SIM_VARIANTS_H
#define TOOLS_BTCTL_SIM_VARIANTS_H

#include <string>

#include "btctl/base/JsonFwd.h"
#include "glib/Owned.h"

namespace btctl {

/// A value of that type from what is written on the command line: texts as they are, switches as words, bytes
/// in hexadecimal digits, and the rest as GLib writes it, such as "[<1>, <'two'>]". Throws a Failure that
/// names the argument.
OwnedVariant ToVariant(const std::string& text, const std::string& type, const std::string& argument);

Json ToJson(GVariant* value);

}  // namespace btctl

#endif
