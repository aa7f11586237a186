#ifndef BLUETOOTH_MWPBLUETOOTH_H
#define BLUETOOTH_MWPBLUETOOTH_H

#include <bluetooth/MWPBtExport.h>

/// Starts the library: connects to the Bluetooth service and subscribes to its events.
///
/// Returns 1 if the service is reachable, 0 otherwise (the cause is in the log). A failed start may be tried
/// again; after a successful one, further calls return 1 and do nothing.
///
/// Blocks while the connection is made. Events are delivered later on the thread-default GLib main context of
/// the calling thread, and only while the application runs a main loop on it: the library creates no thread
/// and runs no loop. Requests work without a loop.
MWP_BT_API int MWP_CreateBlueTooth();

/// Stops the library and deletes its client. Afterwards requests answer their not-initialised values, and
/// listeners that still exist receive nothing until they are constructed anew.
/// Call it when no other thread is inside a request or an event. If a callback calls it, no further callback
/// of that event follows. The shared memory stays attached: each round of create and destroy takes 3.1 MiB of
/// address space for good.
MWP_BT_API void MWP_DestroyBlueTooth();

#endif
