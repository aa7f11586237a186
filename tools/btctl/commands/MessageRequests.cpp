#include <bluetooth/MWPBtMessage.h>

#include "btctl/commands/Tables.h"

namespace btctl {
namespace {

using namespace arg;

Argument Folder() { return OneOf("FOLDER", WordsOf<MWPBtMessageType>()); }
Argument MessageHandle() { return Text("HANDLE", "of the message"); }

}  // namespace

// The service offers no messages yet: most of these are refused by the library itself.
std::vector<Request> MessageRequests() {
  std::vector<Request> requests{
      {"message download",
       "Start a download",
       BTCTL_METHOD(MWPBtMessage, StartMessageDownload),
       {},
       Accepted(),
       {}},
      {"message stop",
       "Stop a download",
       BTCTL_METHOD(MWPBtMessage, StopDownloadMessage),
       {},
       Accepted(),
       {}},
      {"message status",
       "Show the state of a download",
       BTCTL_METHOD(MWPBtMessage, GetMessageLoadStatus),
       {},
       ValueOf(WordsOf<MWPBtType::MsgLoadStatus>()),
       {}},
      {"message send",
       "Send a message",
       BTCTL_METHOD(MWPBtMessage, SendMessage),
       {Number(), Text("TEXT", "of the message")},
       Accepted(),
       {}},
      {"message mark-read",
       "Mark a message as read",
       BTCTL_METHOD(MWPBtMessage, SetMessageReaded),
       {MessageHandle()},
       Accepted(),
       {}},
      {"message at",
       "Show the message at an index of a folder",
       BTCTL_METHOD(MWPBtMessage, GetMessageByIndex),
       {Folder(), Whole("INDEX", "counted from 0")},
       Value(),
       {}},
      {"message show",
       "Show a message",
       BTCTL_METHOD(MWPBtMessage, GetMessageByHandle),
       {MessageHandle()},
       Value(),
       {}},
      {"message list",
       "Show the messages of a folder",
       BTCTL_METHOD(MWPBtMessage, GetMessageList),
       {Folder()},
       ListOf("message"),
       {}},
      {"message delete",
       "Delete a message",
       BTCTL_METHOD(MWPBtMessage, DeleteMessageByHandle),
       {MessageHandle(), Or(Whole("TYPE", "as the service numbers it"), "0")},
       Accepted(),
       {}},
      {"message clear",
       "Delete the messages of a folder",
       BTCTL_METHOD(MWPBtMessage, ClearMessage),
       {Folder()},
       Accepted(),
       {}},
      {"message count",
       "Count the messages of a folder",
       "MWPBtMessage::GetMessageCount",
       Bind<MWPBtMessage, int, MWPBtMessageType>(&MWPBtMessage::GetMessageCount),
       {Folder()},
       Value(),
       {}},
      {"message count-by-state",
       "Count the read or unread messages of a folder",
       "MWPBtMessage::GetMessageCount/2",
       Bind<MWPBtMessage, int, MWPBtMessageType, int>(&MWPBtMessage::GetMessageCount),
       {Folder(), Whole("STATE", "as the service numbers it")},
       Value(),
       {}},
  };
  for (Request& request : requests) {
    request.checks = {NotSupportedYet("messages")};
  }
  return requests;
}

}  // namespace btctl
