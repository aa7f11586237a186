// listening_client: an application that knows the public headers only. It starts the library, prints "power
// N" with the service's answer, then "ready", and from then on one line for each event. SIGTERM ends it in
// good order. With the argument "wait" it goes on trying while there is no service, and prints "waiting"
// once.

#include <csignal>
#include <cstdio>
#include <list>
#include <string>

#include <glib-unix.h>
#include <glib.h>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>

#include "glib/Owned.h"

namespace {

template <typename... Values>
void Print(const char* format, Values... values) {
  std::printf(format, values...);
  std::fflush(stdout);
}

class ComListener : public IMWPBtComListener {
  void OnConnectStatusChanged(const std::string& address, MWPBtType::ProfileId profile,
                              MWPBtType::ConnStatus status) override {
    Print("connection %s %d %d\n", address.c_str(), profile, status);
  }
};

class PhoneListener : public IMWPBtPhoneListener {
  void OnCallStatusChanged(int callId, MWPBtType::CallStatus status, int callCount) override {
    Print("call %d %d %d\n", callId, status, callCount);
  }
  void OnCurrentCallInfoChanged(int) override {
    MWPTypeCallInfo info;
    MWPBtPhone().GetCurrentCallInfo(info);
    Print("calls %d %s\n", info.nCallCount, info.callSlot1.strText1.c_str());
  }
};

class PbapListener : public IMWPBtPbapListener {
  void OnPBDownloadStatus(MWPBtType::PbapStatus status, MWPBtType::PbapType) override {
    if (status != MWPBtType::BT_PBAP_COMPLETED) {
      return;
    }
    std::list<MWPTypeContact> contacts;
    MWPBtPbap().GetContactList(contacts);
    Print("contacts %zu %s\n", contacts.size(), contacts.empty() ? "" : contacts.front().strText2.c_str());
  }
};

class MediaListener : public IMWPBtMediaListener {
  void OnCurPositionChanged(int position, int totalLength) override {
    Print("position %d %d\n", position, totalLength);
  }
};

class SppListener : public IMWPBtSppListener {
  void OnSppReceiveBufferChanged(const std::string& address, char* buffer, int length) override {
    Print("data %s %.*s\n", address.c_str(), length, buffer);
  }
};

gboolean Quit(gpointer loop) {
  g_main_loop_quit(static_cast<GMainLoop*>(loop));
  return G_SOURCE_CONTINUE;
}

bool Start(bool waits) {
  for (bool isFirst = true; MWP_CreateBlueTooth() == 0; isFirst = false) {
    if (!waits) {
      return false;
    }
    if (isFirst) {
      Print("%s\n", "waiting");
    }
    g_usleep(10000);
  }
  return true;
}

void Listen() {
  const OwnedMainLoop loop(g_main_loop_new(nullptr, FALSE));
  g_unix_signal_add(SIGTERM, Quit, loop.get());
  Print("power %d\nready\n", MWPBtCom().GetPowerStatus());
  g_main_loop_run(loop.get());
}

}  // namespace

int main(int argc, char** argv) {
  {
    ComListener com;
    PhoneListener phone;
    PbapListener pbap;
    MediaListener media;
    SppListener spp;
    if (!Start(argc > 1 && std::string(argv[1]) == "wait")) {
      std::fprintf(stderr, "there is no Bluetooth service\n");
      return 1;
    }
    Listen();
  }
  MWP_DestroyBlueTooth();
}
