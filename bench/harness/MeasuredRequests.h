#ifndef BENCH_HARNESS_MEASUREDREQUESTS_H
#define BENCH_HARNESS_MEASUREDREQUESTS_H

#include <string>

#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPhone.h>

#include "ipc/BtProxy.h"

// The requests that are measured, by hand and through a facade. By hand means as in C, without anything of
// this tree: a yardstick stays as it is. So errors are not owned here as elsewhere (glib/Owned.h).

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

constexpr const char* kMeasuredAddress = "00:1A:7D:DA:71:13";
constexpr MWPBtType::ProfileId kMeasuredProfile = MWPBtType::BT_PROFILE_HFP;

/// A request that checks an address, and logs nothing if the address is one.
inline void DisConnectByHand() {
  guchar result = 0;
  GError* error = nullptr;
  com_zelk_linux_bluetooth_call_dis_connect_sync(g_BtProxy, kMeasuredAddress, kMeasuredProfile, &result,
                                                 nullptr, &error);
  g_clear_error(&error);
}

inline void DisConnectThroughFacade() {
  static const std::string address = kMeasuredAddress;
  MWPBtCom().DisConnect(address, kMeasuredProfile);
}

/// The same, and two lines in the log.
inline void ConnectByHand() {
  guchar result = 0;
  GError* error = nullptr;
  com_zelk_linux_bluetooth_call_connect_sync(g_BtProxy, kMeasuredAddress, kMeasuredProfile, 0, &result,
                                             nullptr, &error);
  g_clear_error(&error);
}

inline void ConnectThroughFacade() {
  static const std::string address = kMeasuredAddress;
  MWPBtCom().Connect(address, kMeasuredProfile, 0);
}

struct MeasuredRequest {
  const char* name;
  void (*byHand)();
  void (*throughFacade)();
};

constexpr MeasuredRequest kAcceptCall = {"AcceptCall", AcceptCallByHand, AcceptCallThroughFacade};
constexpr MeasuredRequest kGetPowerStatus = {"GetPowerStatus", GetPowerStatusByHand,
                                             GetPowerStatusThroughFacade};
constexpr MeasuredRequest kDisConnect = {"DisConnect", DisConnectByHand, DisConnectThroughFacade};
constexpr MeasuredRequest kConnect = {"Connect", ConnectByHand, ConnectThroughFacade};

#endif
