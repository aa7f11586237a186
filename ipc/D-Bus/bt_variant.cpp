// Byte buffers on the wire: a variant that holds an array of bytes.

#include "ipc/D-Bus/bt_variant.h"

#include <cstring>

#define MWP_LOG_SOURCE "ipc/D-Bus/bt_variant"
#include <mwp/MWPLog.h>

#include "glib/Owned.h"

GVariant* bt_build_variant_data(void* data, int len) {
  gsize size = len > 0 ? static_cast<gsize>(len) : 0;
  if (data == nullptr && size > 0) {
    MWP_LOG(MWP_LOG_ERROR, "bt_build_variant_data: %d bytes announced, but there is no buffer", len);
    size = 0;
  }
  return g_variant_new_variant(g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, data, size, 1));
}

int bt_extract_variant_data(void* dest, GVariant* value) {
  if (dest == nullptr || value == nullptr || !g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT)) {
    MWP_LOG(MWP_LOG_ERROR, "bt_extract_variant_data: no buffer, or not a variant that holds bytes");
    return 0;
  }
  const OwnedVariant bytes(g_variant_get_variant(value));
  gsize size = 0;
  if (g_variant_is_of_type(bytes.get(), G_VARIANT_TYPE_BYTESTRING)) {
    const gconstpointer data = g_variant_get_fixed_array(bytes.get(), &size, 1);
    if (size > 0) {
      std::memcpy(dest, data, size);
    }
  } else {
    MWP_LOG(MWP_LOG_ERROR, "bt_extract_variant_data: the variant holds '%s', not bytes",
            g_variant_get_type_string(bytes.get()));
  }
  return static_cast<int>(size);
}
