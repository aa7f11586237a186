#include "recorder/ZeroValue.h"

namespace {

GVariant* ZeroTuple(const GVariantType* type) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, type);
  for (const GVariantType* item = g_variant_type_first(type); item != nullptr;
       item = g_variant_type_next(item)) {
    g_variant_builder_add_value(&builder, ZeroValue(item));
  }
  return g_variant_builder_end(&builder);
}

}  // namespace

GVariant* ZeroValue(const GVariantType* type) {
  if (g_variant_type_is_tuple(type)) {
    return ZeroTuple(type);
  }
  if (g_variant_type_is_array(type)) {
    return g_variant_new_array(g_variant_type_element(type), nullptr, 0);
  }
  if (g_variant_type_equal(type, G_VARIANT_TYPE_STRING)) {
    return g_variant_new_string("");
  }
  if (g_variant_type_equal(type, G_VARIANT_TYPE_VARIANT)) {
    return g_variant_new_variant(g_variant_new_array(G_VARIANT_TYPE_BYTE, nullptr, 0));
  }
  // What is left is of fixed size, and GVariant takes missing data as zeros.
  return g_variant_new_from_data(type, nullptr, 0, TRUE, nullptr, nullptr);
}
