// The connection to the Bluetooth service and the shared memory it is used with.

#include "ipc/BtClientIpcAdapter.h"

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "glib/Owned.h"
#include "ipc/BtProxy.h"
#include "ipc/ServiceError.h"
#include "ipc/SessionBusExit.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "protocol/BusNames.h"
#include "protocol/Segments.h"

ComZelkLinuxBluetooth* g_BtProxy = nullptr;

namespace {

constexpr int kLastRetry = 6;  // counted from 0: seven failures end the attempt

}  // namespace

BtClientIpcAdapter::BtClientIpcAdapter() { InitAllShareMemory(); }

BtClientIpcAdapter::~BtClientIpcAdapter() {
  for (const SegmentEntry& segment : kSegmentCatalogue) {
    if (segment.id != SH_CALL_INFO_LIST) {  // stays attached on purpose
      ShareMemory::DestroyShareMemory(segment.id);
    }
  }
}

bool BtClientIpcAdapter::InitAllShareMemory() {
  bool attached = false;
  for (const SegmentEntry& segment : kSegmentCatalogue) {
    attached = ShareMemory::InitShareMemory(segment.id, static_cast<unsigned int>(segment.size));
    MWP_LOG(MWP_LOG_DEBUG, "[btservice][BtServerRpcAdpter::BtServerRpcAdpter] [%s] creat share memory:%d",
            segment.name, attached);
  }
  // The last one is the parameter segment.
  if (attached) {
    LoadPersistDataToSharemenory();
  }
  return attached;
}

bool BtClientIpcAdapter::InitDBusConnect() {
  MWP_LOG(MWP_LOG_DEBUG, "[btservice] [BtClientIpcAdapter::InitDBusConnect] start");

  const SessionBusExit busExit;
  int retry = 0;
  bool firstTry = true;
  for (;;) {
    OwnedError error;
    g_BtProxy = com_zelk_linux_bluetooth_proxy_new_for_bus_sync(
        G_BUS_TYPE_SESSION, G_DBUS_PROXY_FLAGS_NONE, kServiceName, kServicePath, nullptr, error.Out());
    SessionBusExit::SwitchOff(g_BtProxy);
    if (g_BtProxy == nullptr) {
      MWP_LOG(MWP_LOG_ERROR, "InitDBusConnect: Failed to create proxy. Reason: %s.retry->%d", Reason(error),
              retry);
      if (retry >= kLastRetry) {
        return false;
      }
      ++retry;
      firstTry = false;
    } else if (firstTry) {
      break;
    }
    // Once an attempt has failed, a later success does not end the loop: proxies are made, and given up
    // without being released, until creations have failed seven times. Intended, and to be kept; the caller
    // sees false.
  }

  const OwnedText owner(g_dbus_proxy_get_name_owner(G_DBUS_PROXY(g_BtProxy)));
  if (owner == nullptr) {
    MWP_LOG(MWP_LOG_WARNING, "bt_proxy_get_service_dbus_ready_status Owner Name is nullptr");
    return false;
  }
  MWP_LOG(
      MWP_LOG_INFO,
      "[btservice] [BtClientIpcAdapter::InitDBusConnect] bt_proxy_get_service_dbus_ready_status Owner Name: "
      "%s",
      owner.get());
  RegisterDBusSignal();
  return true;
}
