#include <bluetooth/MWPBtMessage.h>

#include "contract/RequestCases.h"

namespace bttest {

using F = MWPBtMessage;
using C = MWPBtClient;

namespace {

/// Nobody is asked, ready or not.
RequestCase Fixed(const char* name, const RequestCalls& calls, const char* answer) {
  return {name, calls, "", "", answer, Guarded::NO};
}

template <typename Class>
using CountOfState = int (Class::*)(MWPBtMessageType, int);
template <typename Class>
using Count = int (Class::*)(MWPBtMessageType);

}  // namespace

std::vector<RequestCase> MessageRequests() {
  const char* const defaultMessage = "{'', 3, '', '', '', '', '', 1}";
  RequestCalls loadStatus = Asks(&F::GetMessageLoadStatus, &C::GetMessageLoadStatus);
  loadStatus.facade.idleAnswer = "8";
  return {
      Fixed("StartMessageDownload", Asks(&F::StartMessageDownload, &C::StartMessageDownload), "0"),
      Fixed("StopDownloadMessage", Asks(&F::StopDownloadMessage, &C::StopDownloadMessage), "0"),
      Fixed("GetMessageLoadStatus", loadStatus, "8"),
      Fixed("SendMessage", Asks(&F::SendMessage, &C::SendMessage, "+49123", "text"), "0"),
      Fixed("SetMessageReaded", Asks(&F::SetMessageReaded, &C::SetMessageReaded, "handle"), "0"),
      Fixed("GetMessageByIndex", Asks(&F::GetMessageByIndex, &C::GetMessageByIndex, MESSAGE_SENT, 1),
            defaultMessage),
      Fixed("GetMessageByHandle", Asks(&F::GetMessageByHandle, &C::GetMessageByHandle, "handle"),
            defaultMessage),
      Fixed("GetMessageList",
            Asks(&F::GetMessageList, &C::GetMessageList, MESSAGE_SENT, std::list<MWPTypeMessage>(1)), "0"),
      Fixed("DeleteMessageByHandle", Asks(&F::DeleteMessageByHandle, &C::DeleteMessageByHandle, "handle", 1),
            "0"),
      Fixed("ClearMessage", Asks(&F::ClearMessage, &C::ClearMessage, MESSAGE_SENT), "0"),
      Fixed("GetMessageCount",
            Asks(CountOfState<F>(&F::GetMessageCount), CountOfState<C>(&C::GetMessageCount), MESSAGE_SENT, 1),
            "0"),
      Fixed("GetMessageCount",
            Asks(Count<F>(&F::GetMessageCount), Count<C>(&C::GetMessageCount), MESSAGE_SENT), "0"),
  };
}

}  // namespace bttest
