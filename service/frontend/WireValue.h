#ifndef SERVICE_FRONTEND_WIREVALUE_H
#define SERVICE_FRONTEND_WIREVALUE_H

#include <string>
#include <type_traits>
#include <vector>

#include <gio/gio.h>

#include "glib/Owned.h"
#include "ipc/D-Bus/bt_variant.h"
#include "service/stack/StackTypes.h"

namespace btservice {

// How values of the stack travel: enumerations as bytes, truth as bytes or booleans, bytes inside a variant.
// An answer holds the stack's values, and becomes floating variants only when it is sent: it may come late or
// never.

/// The bytes inside a variant, as a copy; none if it holds something else than an array of bytes. value is
/// the variant as a method gets it, with the array inside.
inline Bytes BytesFromVariant(GVariant* value) {
  const OwnedVariant inner(g_variant_get_variant(value));
  Bytes bytes;
  if (g_variant_is_of_type(inner.get(), G_VARIANT_TYPE_BYTESTRING)) {
    bytes.resize(g_variant_n_children(inner.get()) + 1);  // never without a buffer
    bytes.resize(bt_extract_variant_data(bytes.data(), value));
  }
  return bytes;
}

/// A floating variant with a copy of the bytes.
inline GVariant* VariantFromBytes(const Bytes& bytes) {
  return bt_build_variant_data(const_cast<std::uint8_t*>(bytes.data()), static_cast<int>(bytes.size()));
}

/// A floating array of pairs.
inline GVariant* VariantFromModes(const std::vector<PlayMode>& modes) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("a(yy)"));
  for (const PlayMode& mode : modes) {
    g_variant_builder_add(&builder, "(yy)", mode.attribute, mode.value);
  }
  return g_variant_builder_end(&builder);
}

/// An argument as the stack takes it. Numbers that are no enumerator come through: a stack refuses them.
template <typename Value, typename Wire>
Value FromWire(Wire wire) {
  if constexpr (std::is_same_v<Value, bool>) {
    return wire != 0;
  } else if constexpr (std::is_same_v<Value, Bytes>) {
    return BytesFromVariant(wire);
  } else {
    return static_cast<Value>(wire);
  }
}

/// A value of an answer as the generated function takes it. A text is not copied: value must outlive the
/// call.
template <typename Wire, typename Value>
Wire ToWire(const Value& value) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return value.c_str();
  } else if constexpr (std::is_same_v<Value, Bytes>) {
    return VariantFromBytes(value);
  } else if constexpr (std::is_same_v<Value, std::vector<PlayMode>>) {
    return VariantFromModes(value);
  } else {
    return static_cast<Wire>(value);
  }
}

}  // namespace btservice

#endif
