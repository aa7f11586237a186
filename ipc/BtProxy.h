#ifndef IPC_BTPROXY_H
#define IPC_BTPROXY_H

#include <bt_dbus.h>

#include <bluetooth/MWPBtExport.h>

/// The process-wide proxy of the Bluetooth service; null until BtClientIpcAdapter::InitDBusConnect has made
/// one. Written by every attempt to make it, the failed ones included, and never released.
extern MWP_BT_API ComZelkLinuxBluetooth* g_BtProxy;

#endif
