// An application of the first release. It stays as it is: what it is compiled and linked with is that of the
// first release, too, and it runs with today's library (run.py). Started with the service and a phone, it
// prints what it finds there, makes a call, and ends with 0.

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
#include <glib.h>

#include <cstdio>
#include <functional>

namespace {

using namespace MWPBtType;

constexpr gint64 kPatienceInMicroseconds = G_GINT64_CONSTANT(100000000);

struct Heard {
  int callId = 0;
  CallStatus callStatus = BT_CALL_IDLE;
  int callCount = 0;
  int hangups = 0;
  int capability = -1;
  int position = -1;
};

class ComEvents : public IMWPBtComListener {
 public:
  explicit ComEvents(Heard& heard) : m_heard(heard) {}

 private:
  void OnBtCapabilityChanged(Capability capability, int value) override {
    if (capability == BT_CAP_LOCAL_RING) {
      m_heard.capability = value;
    }
  }

  Heard& m_heard;
};

class PhoneEvents : public IMWPBtPhoneListener {
 public:
  explicit PhoneEvents(Heard& heard) : m_heard(heard) {}

 private:
  void OnCallStatusChanged(int callId, CallStatus status, int callCount) override {
    m_heard.callId = callId;
    m_heard.callStatus = status;
    m_heard.callCount = callCount;
  }
  void OnHangupCallChanged() override { ++m_heard.hangups; }

  Heard& m_heard;
};

class MediaEvents : public IMWPBtMediaListener {
 public:
  explicit MediaEvents(Heard& heard) : m_heard(heard) {}

 private:
  void OnCurPositionChanged(int position, int) override { m_heard.position = position; }

  Heard& m_heard;
};

/// Listeners that hear nothing here; their tables are those of the library.
struct OtherListeners {
  IMWPBtPbapListener phoneBook;
  IMWPBtMessageListener messages;
  IMWPBtSppListener serial;
  IMWPBtBleListener lowEnergy;
};

gboolean WakeUp(gpointer /*unused*/) { return G_SOURCE_CONTINUE; }

/// Lets events in until the condition holds.
bool Wait(const char* what, const std::function<bool()>& condition) {
  const gint64 end = g_get_monotonic_time() + kPatienceInMicroseconds;
  while (!condition()) {
    if (g_get_monotonic_time() > end) {
      std::printf("in vain: %s\n", what);
      return false;
    }
    g_main_context_iteration(nullptr, TRUE);
  }
  return true;
}

bool PhoneIsThere() {
  return MWPBtPhone().GetPhoneConnectionState().status == BT_CONN_CONNECTED &&
         MWPBtMedia().GetMediaConnectionState().status == BT_CONN_CONNECTED &&
         MWPBtPbap().GetCallLogCount(CALL_LOG_ALL) == 3;
}

void ShowState() {
  std::string name;
  std::printf("power %d\n", MWPBtCom().GetPowerStatus());
  std::printf("attribute %d", MWPBtCom().GetAttribute(BT_ATTR_LOCAL_NAME, name) != 0);
  std::printf(" %s\n", name.c_str());
  const MWPTypeConnectionState phone = MWPBtPhone().GetPhoneConnectionState();
  std::printf("phone %d %s %s\n", phone.status, phone.address.c_str(),
              MWPBtCom().GetRemotePairDeviceName(phone.address).c_str());
}

void ShowLists() {
  std::list<MWPTypeContact> contacts;
  MWPBtPbap().GetContactList(contacts);
  for (const MWPTypeContact& contact : contacts) {
    std::printf("contact %d %s|%s", contact.nContactId, contact.strText1.c_str(), contact.strText2.c_str());
    for (const MWPTypeContactNumber& number : contact.listNumbers) {
      for (const std::string& value : number.vecValues) {
        std::printf("|%d %s", number.nType, value.c_str());
      }
    }
    std::printf("\n");
  }
  std::list<MWPTypeCallLog> logs;
  MWPBtPbap().GetCallLogList(CALL_LOG_ALL, logs);
  for (const MWPTypeCallLog& log : logs) {
    std::printf("log %s|%s|%s|%s|%s|%d|%d\n", log.strText1.c_str(), log.strText2.c_str(),
                log.strText3.c_str(), log.strText4.c_str(), log.strText5.c_str(), log.nValue1, log.nValue2);
  }
}

bool SwitchRinging(const Heard& heard) {
  const int wanted = MWPBtCom().GetCapability(BT_CAP_LOCAL_RING) == 0 ? 1 : 0;
  std::printf("switched %d\n", MWPBtCom().SetCapability(BT_CAP_LOCAL_RING, wanted) != 0);
  return Wait("the capability", [&] { return heard.capability == wanted; });
}

bool PlayMusic(const Heard& heard) {
  std::printf("plays %d\n", MWPBtMedia().PlayMusic(0, 0) != 0);
  if (!Wait("the music", [&] { return heard.position > 0; })) {
    return false;
  }
  MWPTypeMediaInfo track;
  MWPBtMedia().GetMediaInfo(track);
  std::printf("track %s|%s|%s|%s|%s\n", track.title.c_str(), track.artist.c_str(), track.album.c_str(),
              track.genre.c_str(), track.duration.c_str());
  return true;
}

bool MakeCall(const Heard& heard) {
  std::printf("dialled %d\n", MWPBtPhone().DialCall("110") != 0);
  if (!Wait("the call", [&] { return heard.callStatus == BT_CALL_ACTIVE; })) {
    return false;
  }
  MWPTypeCallInfo info;
  MWPBtPhone().GetCurrentCallInfo(info);
  std::printf("call %d of %d: %d %d %s\n", info.callSlot1.nValue1 == heard.callId, info.nCallCount,
              info.callSlot1.nValue2, info.callSlot1.nValue3, info.callSlot1.strText1.c_str());
  std::printf("second call %d\n", info.callSlot2.nValue1);
  std::printf("ends %d\n", MWPBtPhone().TerminateCall() != 0);
  return Wait("the end of the call",
              [&] { return heard.callStatus == BT_CALL_IDLE && heard.callCount == 0 && heard.hangups == 1; });
}

bool Use(const Heard& heard) {
  if (!Wait("the service", [] { return MWP_CreateBlueTooth() != 0; }) || !Wait("the phone", PhoneIsThere)) {
    return false;
  }
  ShowState();
  ShowLists();
  return SwitchRinging(heard) && PlayMusic(heard) && MakeCall(heard);
}

}  // namespace

int main() {
  g_timeout_add(20, WakeUp, nullptr);
  bool isFine = false;
  {
    Heard heard;
    const ComEvents com(heard);
    const PhoneEvents phone(heard);
    const MediaEvents media(heard);
    const OtherListeners others;
    isFine = Use(heard);
    std::printf("others %d %d\n", MWPBtMessage().GetMessageLoadStatus(), MWPBtSpp().SetRfCommUuid("nothing"));
  }
  MWP_DestroyBlueTooth();
  std::printf("stopped %d\n", MWPBtCom().GetPowerStatus());
  return isFine ? 0 : 1;
}
