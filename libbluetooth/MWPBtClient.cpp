// Start and stop of the client.

#include <bluetooth/MWPBluetooth.h>
#include <mwp/MWPAppMgrService.h>

#define MWP_LOG_SOURCE "libbluetooth/MWPBtClient"
#include <mwp/MWPLog.h>

#include "libbluetooth/MWPBtClient.h"

// The client's templates are part of what the library exports.
template class IMWPListener<IMWPBtListenerBase>;
template class IMWPService<IMWPBtListenerBase>;
template class MWPSingleton<MWPBtClient>;

int MWPBtClient::m_bInitClient = 0;
int MWPBtClient::m_bServiceReady = 0;

namespace {

// Set once the application manager has reported the Bluetooth service as up. Nothing depends on it: requests
// are possible from a successful start on, and only then.
[[maybe_unused]] int s_bBtServiceRegistReady = 0;

}  // namespace

MWPBtClient::MWPBtClient() { MWP_GetAppMgrService()->AddListener(this); }

int MWPBtClient::InitInstance() {
  const int connected = m_adapter.InitDBusConnect() ? 1 : 0;
  if (connected != 0) {
    m_bInitClient = 1;
    m_bServiceReady = 1;
  }
  return connected;
}

int MWPBtClient::ExitInstance() {
  MWP_LOG_AT(64, MWP_LOG_INFO, "%s()", __func__);
  m_bServiceReady = 0;
  m_bInitClient = 0;
  return 1;
}

void MWPBtClient::InitListener() {}

void MWPBtClient::ExitListener() {}

void MWPBtClient::OnModuleStatusChanged(AppBootInfo& info) {
  if (info.nStatus != 0 && info.nModule == SERVICE_MODULE_BLUETOOTH) {
    MWP_LOG_AT(2203, MWP_LOG_INFO, "~~btservice regist ready~~.");
    s_bBtServiceRegistReady = 1;
  }
}

int MWP_CreateBlueTooth() { return MWPSingleton<MWPBtClient>::GetInstance()->Start(); }

void MWP_DestroyBlueTooth() {
  using Singleton = MWPSingleton<MWPBtClient>;
  // Without a client this makes one only to delete it, which attaches the shared memory and enters the client
  // with the application manager: callers see both.
  Singleton::GetInstance()->Stop();
  Singleton::ms_cs.Lock();
  delete Singleton::ms_pSingleton;
  __atomic_store_n(&Singleton::ms_pSingleton, nullptr, __ATOMIC_RELEASE);
  Singleton::ms_cs.Unlock();
}
