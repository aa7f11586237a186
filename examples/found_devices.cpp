// What the library does not report: the devices that a search finds, and that the service comes and goes.
// Both come from the bus itself, with plain GDBus. docs/found-devices.md explains it.
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <gio/gio.h>
#include <cstdio>
#include <string>

namespace {
constexpr const char* kService = "com.zelk.linux.bluetooth";  // the name on the bus, and the interface
constexpr const char* kObject = "/com/zelk/linux/bluetooth";

void Search() { std::printf("search %s\n", MWPBtCom().SetScanAction(1) != 0 ? "accepted" : "refused"); }

struct Power : IMWPBtComListener {
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus status) override {
    if (status == MWPBtType::BT_POWER_ON) {
      Search();
    }
  }
};

/// Strangers choose the names: without what a terminal would take for a command.
std::string Visible(const char* name) {
  std::string text;
  for (const char* at = name; *at != '\0'; at = g_utf8_next_char(at)) {
    if (g_unichar_isprint(g_utf8_get_char(at)) != FALSE) {
      text.append(at, static_cast<const char*>(g_utf8_next_char(at)));
    } else {
      text += '?';
    }
  }
  return text;
}

void OnDeviceFound(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* values,
                   void*) {
  const char *address = nullptr, *name = nullptr;
  guchar support = 0;
  if (g_variant_is_of_type(values, G_VARIANT_TYPE("(ssy)"))) {  // the library would check it for its events
    g_variant_get(values, "(&s&sy)", &address, &name, &support);
    std::printf("found %s %s, support %d\n", address, Visible(name).c_str(), support);
  }
}

void OnServiceAppeared(GDBusConnection*, const char*, const char*, void*) {
  std::printf("service is there\n");
  if (MWP_CreateBlueTooth() == 0) {  // does nothing if the library is started already
    std::printf("the library cannot be started\n");
  } else if (MWPBtCom().GetPowerStatus() == MWPBtType::BT_POWER_ON) {
    Search();
  } else {
    MWPBtCom().SetPower(1);
  }
}

void OnServiceVanished(GDBusConnection*, const char*, void*) { std::printf("service is not there\n"); }
}  // namespace

int main() {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  const Power power;
  GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (bus == nullptr) {
    std::fprintf(stderr, "there is no session bus\n");
    return 1;
  }
  g_dbus_connection_signal_subscribe(bus, kService, kService, "OnScanedDeviceChanged", kObject, nullptr,
                                     G_DBUS_SIGNAL_FLAGS_NONE, OnDeviceFound, nullptr, nullptr);
  g_bus_watch_name_on_connection(bus, kService, G_BUS_NAME_WATCHER_FLAGS_NONE, OnServiceAppeared,
                                 OnServiceVanished, nullptr, nullptr);
  g_main_loop_run(g_main_loop_new(nullptr, FALSE));  // until the process is ended
}
