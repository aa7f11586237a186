#ifndef TESTS_CONTRACT_STARTEDLIBRARY_H
#define TESTS_CONTRACT_STARTEDLIBRARY_H

#include <stdexcept>

#include <bluetooth/MWPBluetooth.h>

#include "ipc/BtProxy.h"
#include "libbluetooth/MWPBtClient.h"
#include "protocol/BusNames.h"
#include "support/BusDaemon.h"
#include "support/GlibHelpers.h"
#include "support/MainLoop.h"
#include "support/Recorder.h"

namespace bttest {

/// The client's pointer, which is null while there is none.
inline MWPBtClient*& TheClient() { return MWPSingleton<MWPBtClient>::ms_pSingleton; }

/// The library, started in this process, and a recording service in another.
class StartedLibrary {
 public:
  StartedLibrary() {
    if (MWP_CreateBlueTooth() == 0) {
      throw std::runtime_error("the library does not start");
    }
    recorder.TakeCalls();
  }
  ~StartedLibrary() { MWP_DestroyBlueTooth(); }

  /// Lets the library handle every signal that the service has sent.
  static void HandleSignals() {
    // What the service answers comes after the signals, on the same connection.
    OwnedError error;
    const OwnedVariant pong(g_dbus_connection_call_sync(
        g_dbus_proxy_get_connection(G_DBUS_PROXY(g_BtProxy)), kServiceName, kServicePath,
        "org.freedesktop.DBus.Peer", "Ping", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE,
        static_cast<int>(kBound.count()), nullptr, error.Out()));
    ThrowIfSet(error, "asking the service for a sign of life");
    RunPending();
  }

  /// Lets the service send a signal, and the library handle it.
  void Signal(const std::string& name, GVariant* arguments) {
    recorder.Emit(name, arguments);
    HandleSignals();
  }

  BusDaemon bus;
  Recorder recorder;
};

}  // namespace bttest

#endif
