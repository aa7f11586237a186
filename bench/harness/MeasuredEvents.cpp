#include "bench/harness/MeasuredEvents.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "glib/Owned.h"
#include "ipc/BtProxy.h"

unsigned g_eventsHeard = 0;

namespace {

gboolean OnBareSignal(ComZelkLinuxBluetooth*, guchar, gpointer) { return ++g_eventsHeard != 0; }
gboolean OnBarePosition(ComZelkLinuxBluetooth*, gint, gint, gpointer) { return ++g_eventsHeard != 0; }
gboolean OnBareProfile(ComZelkLinuxBluetooth*, const gchar*, guchar, gpointer) {
  return ++g_eventsHeard != 0;
}

/// Disconnects all handlers of one GObject signal from the proxy, the library's as well: nobody owns them.
void Disconnect(guint signal) {
  while (const gulong handler =
             g_signal_handler_find(g_BtProxy, G_SIGNAL_MATCH_ID, signal, 0, nullptr, nullptr, nullptr)) {
    g_signal_handler_disconnect(g_BtProxy, handler);
  }
}

void DisconnectAll() {
  guint count = 0;
  const OwnedMemory<guint> ids(g_signal_list_ids(com_zelk_linux_bluetooth_get_type(), &count));
  std::for_each(ids.get(), ids.get() + count, Disconnect);
}

}  // namespace

const Event kSignalEvent = {"signal strength (a byte)", "OnBtSignalChanged", "on-bt-signal-changed",
                            "(byte 4,)", G_CALLBACK(OnBareSignal)};
const Event kPositionEvent = {"position in the track (two integers)", "OnCurPositionChanged",
                              "on-cur-position-changed", "(61000, 183000)", G_CALLBACK(OnBarePosition)};
const Event kProfileEvent = {"supported profiles (an address and a byte)", "OnSupportProfileChanged",
                             "on-support-profile-changed", "('00:11:22:33:44:55', byte 3)",
                             G_CALLBACK(OnBareProfile)};

void Subscription::ToLibrary() {
  DisconnectAll();
  m_adapter.RegisterDBusSignal();
}

void Subscription::ToBareHandler(const Event& event) {
  ToLibrary();
  Disconnect(g_signal_lookup(event.objectName, G_OBJECT_TYPE(g_BtProxy)));
  g_signal_connect(g_BtProxy, event.objectName, event.bareHandler, nullptr);
}

void RequireHeard(const Event& event, std::size_t expected) {
  if (g_eventsHeard != expected) {
    throw std::runtime_error(std::string(event.name) + " was heard " + std::to_string(g_eventsHeard) +
                             " times of " + std::to_string(expected));
  }
}
