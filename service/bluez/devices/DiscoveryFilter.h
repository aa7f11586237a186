#ifndef SERVICE_BLUEZ_DEVICES_DISCOVERYFILTER_H
#define SERVICE_BLUEZ_DEVICES_DISCOVERYFILTER_H

#include <string>

#include "glib/Owned.h"

namespace btservice::bluez {

/// The argument of SetDiscoveryFilter, floating: classic Bluetooth only, as the profiles of a head unit are.
/// address: of the one device that is looked for; empty for all.
inline GVariant* NewDiscoveryFilter(const std::string& address) {
  GVariantBuilder filter;
  g_variant_builder_init(&filter, G_VARIANT_TYPE("a{sv}"));
  g_variant_builder_add(&filter, "{sv}", "Transport", g_variant_new_string("bredr"));
  if (!address.empty()) {
    g_variant_builder_add(&filter, "{sv}", "Pattern", g_variant_new_string(address.c_str()));
  }
  return g_variant_new("(a{sv})", &filter);
}

}  // namespace btservice::bluez

#endif
