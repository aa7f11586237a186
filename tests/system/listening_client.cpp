// listening_client: an application that knows the public headers only. It starts the library, prints "power
// N" with the service's answer, then "ready", and from then on one line for each event, until it is ended.

#include <cstdio>
#include <string>

#include <glib.h>

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtCom.h>

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

}  // namespace

int main() {
  ComListener com;
  PhoneListener phone;
  MediaListener media;
  SppListener spp;
  if (MWP_CreateBlueTooth() == 0) {
    std::fprintf(stderr, "there is no Bluetooth service\n");
    return 1;
  }
  Print("power %d\nready\n", MWPBtCom().GetPowerStatus());
  g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}
