#ifndef PROTOCOL_BUSNAMES_H
#define PROTOCOL_BUSNAMES_H

// Where the Bluetooth service is found on the session bus. The interface itself is described in
// ipc/D-Bus/com.zelk.linux.bluetooth.xml.

constexpr const char* kServiceName = "com.zelk.linux.bluetooth";
constexpr const char* kServicePath = "/com/zelk/linux/bluetooth";
constexpr const char* kServiceInterface = "com.zelk.linux.bluetooth";

// The controls of the simulated service, under the same name: what a person, a phone or the network does, and
// what only a simulation can do.

constexpr const char* kControlPath = "/com/zelk/linux/bluetooth/sim";
constexpr const char* kOutsideInterface = "com.zelk.linux.bluetooth.sim.Outside";
constexpr const char* kFaultsInterface = "com.zelk.linux.bluetooth.sim.Faults";

#endif
