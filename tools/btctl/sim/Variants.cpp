#include "btctl/sim/Variants.h"

#include "btctl/base/Failure.h"
#include "btctl/base/Json.h"
#include "btctl/commands/FromText.h"
#include "btctl/words/Words.h"
#include "glib/Owned.h"

namespace btctl {

OwnedVariant ToVariant(const std::string& text, const std::string& type, const std::string& argument) {
  switch (type.front()) {
    case 's':
      return OwnedVariant(g_variant_new_string(text.c_str()));
    case 'b':
      return OwnedVariant(g_variant_new_boolean(
          (text == "true" || text == "yes" || SwitchWords().Find(text) == 1) ? TRUE : FALSE));
    default:
      break;
  }
  if (type == "ay") {
    const std::vector<unsigned char> bytes = ParseBytes(text);
    return OwnedVariant(g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1));
  }
  OwnedError error;
  const OwnedVariantType wanted(g_variant_type_new(type.c_str()));
  OwnedVariant value(g_variant_parse(wanted.get(), text.c_str(), nullptr, nullptr, error.Out()));
  if (value == nullptr) {
    throw Failure(EXIT_USAGE,
                  argument + " is '" + text + "', not of the type '" + type + "': " + error->message);
  }
  return value;
}

Json ToJson(GVariant* value) {
  switch (g_variant_classify(value)) {
    case G_VARIANT_CLASS_STRING:
      return g_variant_get_string(value, nullptr);
    case G_VARIANT_CLASS_BOOLEAN:
      return g_variant_get_boolean(value) != FALSE;
    case G_VARIANT_CLASS_BYTE:
      return g_variant_get_byte(value);
    case G_VARIANT_CLASS_INT32:
      return g_variant_get_int32(value);
    case G_VARIANT_CLASS_UINT32:
      return g_variant_get_uint32(value);
    case G_VARIANT_CLASS_INT64:
      return g_variant_get_int64(value);
    case G_VARIANT_CLASS_DOUBLE:
      return g_variant_get_double(value);
    case G_VARIANT_CLASS_ARRAY:
    case G_VARIANT_CLASS_TUPLE: {
      Json all = Json::array();
      for (gsize i = 0; i < g_variant_n_children(value); ++i) {
        all.push_back(ToJson(OwnedVariant(g_variant_get_child_value(value, i)).get()));
      }
      return all;
    }
    default:
      return OwnedText(g_variant_print(value, FALSE)).get();
  }
}

}  // namespace btctl
