#ifndef SERVICE_BLUEZ_BUS_PROPERTIES_H
#define SERVICE_BLUEZ_BUS_PROPERTIES_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "glib/Owned.h"

namespace btservice::bluez {

/// The properties of one interface of an object, as the daemon says that they are. It may say anything: a
/// property that is missing and one of another type than asked for are the same, nothing.
class Properties {
 public:
  /// As they come from the air, and so without a limit and with control characters: AirText.h is for those
  /// that are passed on.
  std::optional<std::string> Text(const std::string& name) const {
    const OwnedVariant* const value = Find(name, G_VARIANT_TYPE_STRING);
    return value != nullptr ? std::optional<std::string>(g_variant_get_string(value->get(), nullptr))
                            : std::nullopt;
  }
  std::optional<bool> Flag(const std::string& name) const {
    const OwnedVariant* const value = Find(name, G_VARIANT_TYPE_BOOLEAN);
    return value != nullptr ? std::optional<bool>(g_variant_get_boolean(value->get()) != FALSE)
                            : std::nullopt;
  }
  std::optional<std::uint32_t> Number(const std::string& name) const {
    const OwnedVariant* const value = Find(name, G_VARIANT_TYPE_UINT32);
    return value != nullptr ? std::optional<std::uint32_t>(g_variant_get_uint32(value->get())) : std::nullopt;
  }
  std::vector<std::string> Texts(const std::string& name) const {
    std::vector<std::string> all;
    if (const OwnedVariant* const value = Find(name, G_VARIANT_TYPE_STRING_ARRAY)) {
      for (gsize i = 0; i < g_variant_n_children(value->get()); ++i) {
        const OwnedVariant text(g_variant_get_child_value(value->get(), i));
        all.emplace_back(g_variant_get_string(text.get(), nullptr));
      }
    }
    return all;
  }

  void Set(const std::string& name, OwnedVariant value) { m_values[name] = std::move(value); }
  void Remove(const std::string& name) { m_values.erase(name); }

 private:
  const OwnedVariant* Find(const std::string& name, const GVariantType* type) const {
    const auto found = m_values.find(name);
    const bool fits = found != m_values.end() && g_variant_is_of_type(found->second.get(), type) != FALSE;
    return fits ? &found->second : nullptr;
  }

  std::map<std::string, OwnedVariant> m_values;
};

}  // namespace btservice::bluez

#endif
