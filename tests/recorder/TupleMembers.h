#ifndef TESTS_RECORDER_TUPLEMEMBERS_H
#define TESTS_RECORDER_TUPLEMEMBERS_H

#include "glib/OwnedBus.h"

// Tuples travel between a test and the recorder as their members: D-Bus has no empty tuple inside a message.

namespace bttest {

/// The members of a tuple, which may be floating, as an av, floating.
inline GVariant* MembersOf(GVariant* tuple) {
  const OwnedVariant owned = NewRef(tuple);
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("av"));
  for (gsize i = 0; i < g_variant_n_children(owned.get()); ++i) {
    const OwnedVariant member(g_variant_get_child_value(owned.get(), i));
    g_variant_builder_add(&builder, "v", member.get());
  }
  return g_variant_builder_end(&builder);
}

/// The tuple of the members in an av.
inline OwnedVariant TupleOf(GVariant* members) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
  for (gsize i = 0; i < g_variant_n_children(members); ++i) {
    const OwnedVariant boxed(g_variant_get_child_value(members, i));
    const OwnedVariant member(g_variant_get_variant(boxed.get()));
    g_variant_builder_add_value(&builder, member.get());
  }
  return OwnedVariant(g_variant_builder_end(&builder));
}

}  // namespace bttest

#endif
