#ifndef BLUETOOTH_MWPBLUETOOTH_H
#define BLUETOOTH_MWPBLUETOOTH_H

#include <bluetooth/MWPBtExport.h>

/// Starts the library: connects to the Bluetooth service and subscribes to its events.
///
/// Returns non-zero once the service is reachable, 0 otherwise (the cause is in the log). A failed start may
/// be tried again; after a successful one further calls return the first result and do nothing.
///
/// Blocks while the connection is made. Events are delivered later on the GLib main context that is the
/// thread-default one of the calling thread, and only while the application runs a main loop on it: the
/// library creates no thread and runs no loop. Requests work without a loop.
MWP_BT_API int MWP_CreateBlueTooth();

/// Stops the library and deletes its client. Requests answer their not-initialised values afterwards, and
/// listeners that still live receive nothing until they are constructed anew.
/// Call it when no other thread is inside a request or an event. Called from inside a callback, it is the
/// last one of that event.
MWP_BT_API void MWP_DestroyBlueTooth();

#endif
