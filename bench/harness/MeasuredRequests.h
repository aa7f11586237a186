#ifndef BENCH_HARNESS_MEASUREDREQUESTS_H
#define BENCH_HARNESS_MEASUREDREQUESTS_H

#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPhone.h>

#include "ipc/BtProxy.h"

// The requests that are measured, by hand and through a facade.

inline void AcceptCallByHand() {
  gint result = 0;
  GError* error = nullptr;
  com_zelk_linux_bluetooth_call_accept_call_sync(g_BtProxy, &result, nullptr, &error);
  g_clear_error(&error);
}

inline void AcceptCallThroughFacade() { MWPBtPhone().AcceptCall(); }

inline void GetPowerStatusByHand() {
  guchar result = 0;
  GError* error = nullptr;
  com_zelk_linux_bluetooth_call_get_power_status_sync(g_BtProxy, &result, nullptr, &error);
  g_clear_error(&error);
}

inline void GetPowerStatusThroughFacade() { MWPBtCom().GetPowerStatus(); }

#endif
