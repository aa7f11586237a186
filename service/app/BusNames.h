#ifndef SERVICE_APP_BUSNAMES_H
#define SERVICE_APP_BUSNAMES_H

namespace btservice {

constexpr const char* kServiceName = "com.zelk.linux.bluetooth";
constexpr const char* kServiceInterface = "com.zelk.linux.bluetooth";
constexpr const char* kServicePath = "/com/zelk/linux/bluetooth";
constexpr const char* kControlPath = "/com/zelk/linux/bluetooth/sim";

}  // namespace btservice

#endif
