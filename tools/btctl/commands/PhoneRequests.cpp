#include <bluetooth/MWPBtPhone.h>

#include "btctl/commands/Tables.h"

namespace btctl {
namespace {

using namespace MWPBtType;
using namespace arg;

/// The number of calls stands beside the two that the record has room for.
struct Calls {
  int Count() {
    MWPTypeCallInfo info{};
    MWPBtPhone().GetCurrentCallInfo(info);
    return info.nCallCount;
  }
};

Checks NeedsPhone() { return {AdapterIsOff(), NoPhoneIsConnected()}; }
/// In one of these states, or any call.
Checks NeedsCall(const std::vector<std::string>& states = {}) {
  return {AdapterIsOff(), NoPhoneIsConnected(), NoCallIs(states)};
}

}  // namespace

std::vector<Request> PhoneRequests() {
  return {
      {"phone connection",
       "Show the phone's connection",
       BTCTL_METHOD(MWPBtPhone, GetPhoneConnectionState),
       {},
       Value(),
       {}},
      {"phone number",
       "Show the phone's own number",
       BTCTL_METHOD(MWPBtPhone, GetCurrentMobilePhoneNumber),
       {},
       Known(),
       {},
       NeedsPhone()},

      {"call list",
       "Show the current calls",
       BTCTL_METHOD(MWPBtPhone, GetCurrentCallInfo),
       {},
       ListOf("call"),
       {},
       {},
       "MWPBtPhone::GetCurrentCallInfo",
       Bind(&Calls::Count)},
      {"call dial",
       "Dial a number, or a contact",
       BTCTL_METHOD(MWPBtPhone, DialCall),
       {Number()},
       Accepted(),
       {},
       NeedsPhone()},
      {"call redial",
       "Dial the last number again",
       BTCTL_METHOD(MWPBtPhone, RedialCall),
       {},
       Accepted(),
       {},
       NeedsPhone()},
      {"call accept",
       "Accept the incoming or waiting call",
       BTCTL_METHOD(MWPBtPhone, AcceptCall),
       {},
       Accepted(),
       {},
       NeedsCall({"incoming", "waiting"})},
      {"call reject",
       "Reject the incoming or waiting call",
       BTCTL_METHOD(MWPBtPhone, RejectCall),
       {},
       Accepted(),
       {},
       NeedsCall({"incoming", "waiting"})},
      {"call hangup", "Hang up", BTCTL_METHOD(MWPBtPhone, TerminateCall), {}, Accepted(), {}, NeedsCall()},
      {"call action",
       "Swap, join or release calls",
       BTCTL_METHOD(MWPBtPhone, MultipleWayCall),
       {OneOf("ACTION", WordsOf<CallAction>()), Or(Whole("ID", "of the call, if one is meant"), "0")},
       Accepted(),
       {},
       NeedsCall()},
      {"call status",
       "Show the state of a call",
       BTCTL_METHOD(MWPBtPhone, GetCurCallStatus),
       {Whole("ID", "of the call")},
       ValueOf(WordsOf<CallStatus>()),
       {}},
      {"call dtmf",
       "Send a tone",
       BTCTL_METHOD(MWPBtPhone, SendDTMF),
       {Text("TONE", "0 to 9, *, # or A to D")},
       Accepted(),
       {},
       NeedsCall({"active"})},
      {"call audio phone",
       "Move the sound of the call to the phone",
       BTCTL_METHOD(MWPBtPhone, SetAudioPrivacy),
       {Fixed("1")},
       Accepted(),
       OutcomeOf("SetAudioPrivacy", 1),
       NeedsCall()},
      {"call audio car",
       "Move the sound of the call to the head unit",
       BTCTL_METHOD(MWPBtPhone, SetAudioPrivacy),
       {Fixed("0")},
       Accepted(),
       OutcomeOf("SetAudioPrivacy", 0),
       NeedsCall()},
      {"call audio is-private",
       "Show whether the sound of the call is on the phone",
       BTCTL_METHOD(MWPBtPhone, GetAudioIsPrivacy),
       {},
       YesNo(),
       {}},
      {"call echo-cancel",
       "Switch echo cancelling; it is fixed, so nothing is sent to the service",
       BTCTL_METHOD(MWPBtPhone, EnableSWAEC),
       {Switch()},
       Accepted(),
       {}},
      {"call no-noise-reduction",
       "Switch noise reduction off; it is fixed, so nothing is sent to the service",
       BTCTL_METHOD(MWPBtPhone, DisableNREC),
       {},
       Accepted(),
       {}},

      {"voice start",
       "Start the voice recognition of the phone",
       BTCTL_METHOD(MWPBtPhone, StartVoiceRecognition),
       {},
       Nothing(),
       OutcomeOf("StartVoiceRecognition")},
      {"voice stop",
       "Stop the voice recognition of the phone",
       BTCTL_METHOD(MWPBtPhone, StopVoiceRecognition),
       {},
       Nothing(),
       OutcomeOf("StopVoiceRecognition")},
      {"ringtone play",
       "Play a ring tone to try it out",
       BTCTL_METHOD(MWPBtPhone, PlayPreviewRingtone),
       {Text("PATH", "of the file")},
       Accepted(),
       {},
       {AdapterIsOff()}},
      {"ringtone stop",
       "Stop the ring tone",
       BTCTL_METHOD(MWPBtPhone, StopPreviewRingtone),
       {},
       Accepted(),
       {}},
  };
}

}  // namespace btctl
