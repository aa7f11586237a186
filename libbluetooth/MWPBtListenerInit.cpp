// How listeners register and unregister: by being constructed and destroyed.

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtListenerBase.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtListenerInit"
#include <mwp/MWPLog.h>

#include "libbluetooth/MWPBtClient.h"

namespace {

void Register(IMWPBtListenerBase* listener, MWPBtListenerType type) {
  listener->m_nType = type;
  MWPSingleton<MWPBtClient>::GetInstance()->AddListener(listener);
}

// Makes a client if there is none, as after MWP_DestroyBlueTooth(): it is not started and knows no listener.
void Unregister(IMWPBtListenerBase* listener) {
  MWPSingleton<MWPBtClient>::GetInstance()->RemoveListener(listener);
}

}  // namespace

IMWPBtListenerBase::IMWPBtListenerBase() : m_nType(MAX_LISTENER) {
  MWPLogWrite(MWPLogSite{"include/bluetooth/IMWPBtListenerBase", "IMWPBtListenerBase", 26}, MWP_LOG_DEBUG,
              "IMWPBtListenerBase constructor");
}

IMWPBtListenerBase::~IMWPBtListenerBase() = default;

IMWPBtComListener::IMWPBtComListener() { Register(this, COM_LISTENER); }

IMWPBtComListener::~IMWPBtComListener() { Unregister(this); }

IMWPBtPhoneListener::IMWPBtPhoneListener() {
  MWP_LOG_AT(41, MWP_LOG_INFO, "IMWPBtPhoneListener m_nType = HFP_LISTENER");
  Register(this, HFP_LISTENER);
}

IMWPBtPhoneListener::~IMWPBtPhoneListener() { Unregister(this); }

IMWPBtMediaListener::IMWPBtMediaListener() { Register(this, MEDIA_LISTENER); }

IMWPBtMediaListener::~IMWPBtMediaListener() { Unregister(this); }

IMWPBtMessageListener::IMWPBtMessageListener() {
  MWP_LOG_AT(64, MWP_LOG_INFO, "IMWPBtMessageListener m_nType = MAP_LISTENER");
  Register(this, MAP_LISTENER);
}

IMWPBtMessageListener::~IMWPBtMessageListener() { Unregister(this); }

IMWPBtPbapListener::IMWPBtPbapListener() {
  MWP_LOG_AT(76, MWP_LOG_INFO, "IMWPBtPbapListener m_nType = PBAP_LISTENER");
  Register(this, PBAP_LISTENER);
}

IMWPBtPbapListener::~IMWPBtPbapListener() { Unregister(this); }

IMWPBtSppListener::IMWPBtSppListener() { Register(this, SPP_LISTENER); }

IMWPBtSppListener::~IMWPBtSppListener() { Unregister(this); }

IMWPBtBleListener::IMWPBtBleListener() { Register(this, BLE_LISTENER); }

IMWPBtBleListener::~IMWPBtBleListener() { Unregister(this); }
