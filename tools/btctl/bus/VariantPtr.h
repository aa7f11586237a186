#ifndef TOOLS_BTCTL_BUS_VARIANTPTR_H
#define TOOLS_BTCTL_BUS_VARIANTPTR_H

#include <memory>

#include <glib.h>

namespace btctl {

struct UnrefVariant {
  void operator()(GVariant* value) const { g_variant_unref(value); }
};
/// A value that is owned, not floating.
using VariantPtr = std::unique_ptr<GVariant, UnrefVariant>;

}  // namespace btctl

#endif
