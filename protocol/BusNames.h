#ifndef PROTOCOL_BUSNAMES_H
#define PROTOCOL_BUSNAMES_H

// Where the Bluetooth service is found on the session bus. The interface itself is described in
// ipc/D-Bus/com.zelk.linux.bluetooth.xml.

constexpr const char* kServiceName = "com.zelk.linux.bluetooth";
constexpr const char* kServicePath = "/com/zelk/linux/bluetooth";
constexpr const char* kServiceInterface = "com.zelk.linux.bluetooth";

// Where the simulated service, under the same name, has its controls.

constexpr const char* kControlPath = "/com/zelk/linux/bluetooth/sim";
constexpr const char* kControlInterface = "com.zelk.linux.bluetooth.sim";

#endif
