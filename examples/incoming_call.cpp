// Waits for somebody to call the phone, answers, listens for a while, and hangs up. To be tried with a phone
// that rings: script/demo --world one-phone incoming_call
//
// All is done on the thread of the main loop: a small program that has nothing else to do may block it.

#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/MWPBtPhone.h>

#include "Loop.h"
#include "PhoneConnection.h"

namespace {

using namespace MWPBtType;

/// Answers the first call that comes in, and follows it to its end.
class Answering : public IMWPBtPhoneListener {
 public:
  explicit Answering(Loop& loop) : m_loop(loop) {}

 private:
  static constexpr int kSecondsToListen = 3;

  void OnCallStatusChanged(int callId, CallStatus status, int callCount) override {
    ShowEvent("OnCallStatusChanged", callId, status, callCount);
    if (status == BT_CALL_INCOMING && m_callId == kNone) {
      m_callId = callId;
      ShowRequest("AcceptCall", m_phone.AcceptCall());
    } else if (status == BT_CALL_IDLE && callId == m_callId) {
      m_loop.End(m_hasListened);
    }
  }

  void OnCurrentCallInfoChanged(int callCount) override {
    MWPTypeCallInfo calls;
    m_phone.GetCurrentCallInfo(calls);
    ShowEvent("OnCurrentCallInfoChanged", callCount, calls.callSlot1.strText1, calls.callSlot1.strText2);
  }

  void OnCallingTimeChanged(int seconds, int callId, int active) override {
    ShowEvent("OnCallingTimeChanged", seconds, callId, active);
    if (callId == m_callId && seconds >= kSecondsToListen && !m_hasListened) {
      m_hasListened = true;
      ShowRequest("TerminateCall", m_phone.TerminateCall());
    }
  }

  static constexpr int kNone = -1;

  Loop& m_loop;
  MWPBtPhone m_phone;
  int m_callId = kNone;
  bool m_hasListened = false;
};

bool Run(const std::string& phone) {
  Loop loop;
  Answering answering(loop);
  PhoneConnection connection(
      phone, BT_PROFILE_HFP, [] { ShowLine("waiting for a call"); }, [&loop] { loop.End(false); });
  if (MWP_CreateBlueTooth() == 0) {
    return false;
  }
  connection.Begin();
  return loop.Run(60);
}

}  // namespace

int main(int argc, char** argv) {
  const bool hasWorked = Run(argc > 1 ? argv[1] : "00:1A:7D:DA:71:13");
  MWP_DestroyBlueTooth();
  return hasWorked ? 0 : 1;
}
