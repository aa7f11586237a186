#ifndef GLIB_OWNEDBUS_H
#define GLIB_OWNEDBUS_H

#include <gio/gio.h>

#include "glib/Owned.h"
#include "glib/OwnedId.h"

// What Owned.h and OwnedId.h are for the parts of GLib that speak D-Bus. A connection, a message or a proxy
// is an OwnedObject.

using OwnedNodeInfo = Owned<GDBusNodeInfo, g_dbus_node_info_unref>;

/// A name on the bus, or the wish for it: as g_bus_own_name() and its like answer it.
using OwnedNameId = OwnedId<g_bus_unown_name>;
/// A look-out for the owner of a name: as g_bus_watch_name() and its like answer it.
using OwnedNameWatchId = OwnedId<g_bus_unwatch_name>;
/// A subscription to signals: as g_dbus_connection_signal_subscribe() answers it.
using OwnedSubscription = OwnedIdOf<GDBusConnection, guint, g_dbus_connection_signal_unsubscribe>;
/// A filter of messages: as g_dbus_connection_add_filter() answers it.
using OwnedFilter = OwnedIdOf<GDBusConnection, guint, g_dbus_connection_remove_filter>;

#endif
