// Uses one thing of each public header; run without a service, it must say so and end.

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>
#include <bluetooth/MWPBluetooth.h>
#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtCom.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>

#include <cstdio>

namespace {

class Listener : public IMWPBtComListener {};

bool AnswersAreThoseOfAStoppedLibrary() {
  std::string value;
  return MWPBtCom().GetPowerStatus() == 0 && MWPBtPhone().AcceptCall() == 0 &&
         MWPBtMedia().NextMusic() == 0 && MWPBtPbap().GetContactCount() == 0 &&
         MWPBtMessage().GetMessageLoadStatus() == 8 && MWPBtSpp().SetRfCommUuid("") == 0 &&
         MWPBtBle().BleInit() == 0;
}

}  // namespace

int main() {
  int started = 0;
  {
    const Listener listener;
    started = MWP_CreateBlueTooth();
  }
  const bool isAsExpected = started == 0 && AnswersAreThoseOfAStoppedLibrary();
  MWP_DestroyBlueTooth();
  std::puts(isAsExpected ? "libbt is usable; there is no service here" : "unexpected answers");
  return isAsExpected ? 0 : 1;
}
