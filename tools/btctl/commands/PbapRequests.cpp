#include <bluetooth/MWPBtPbap.h>

#include "btctl/commands/Tables.h"

namespace btctl {
namespace {

using namespace arg;

Argument Log() { return OneOf("LOG", WordsOf<CallLogType>()); }

/// Shows one of the call logs.
Request ShowLog(const std::string& log, const std::string& help) {
  return {"log " + log, help, BTCTL_METHOD(MWPBtPbap, GetCallLogList), {Fixed(log)}, ListOf("call-log"),
          {},           {},   BTCTL_METHOD(MWPBtPbap, GetCallLogCount)};
}

}  // namespace

std::vector<Request> PbapRequests() {
  return {
      {"contacts stop",
       "Stop a download",
       BTCTL_METHOD(MWPBtPbap, StopPhoneBookDownload),
       {},
       Accepted(),
       {},
       {NoDownloadIsUnderWay()}},
      {"contacts list",
       "Show the phone book",
       BTCTL_METHOD(MWPBtPbap, GetContactList),
       {},
       ListOf("contact"),
       {},
       {},
       BTCTL_METHOD(MWPBtPbap, GetContactCount)},
      {"contacts favorites",
       "Show the favourite contacts",
       BTCTL_METHOD(MWPBtPbap, GetFavContactList),
       {},
       ListOf("contact"),
       {}},
      {"contacts count", "Count the contacts", BTCTL_METHOD(MWPBtPbap, GetContactCount), {}, Value(), {}},
      {"contacts favorite",
       "Add a contact to the favourites, or remove it",
       BTCTL_METHOD(MWPBtPbap, SetContactFavorite),
       {Contact(), Or(Switch(), "on")},
       Accepted(),
       OutcomeOf("SetContactFavorite"),
       {NoContactHasId(0)}},
      {"contacts delete",
       "Delete a contact",
       BTCTL_METHOD(MWPBtPbap, DeleteContactById),
       {Contact()},
       Accepted(),
       OutcomeOf("DeleteContactById"),
       {NoContactHasId(0)}},
      {"contacts clear",
       "Delete all contacts",
       BTCTL_METHOD(MWPBtPbap, ClearContact),
       {},
       Accepted(),
       OutcomeOf("ClearContact")},

      ShowLog("all", "Show all calls"),
      ShowLog("incoming", "Show incoming calls"),
      ShowLog("outgoing", "Show dialled calls"),
      ShowLog("missed", "Show missed calls"),
      {"log count",
       "Count the entries of a call log",
       BTCTL_METHOD(MWPBtPbap, GetCallLogCount),
       {Log()},
       Value(),
       {}},
      {"log delete",
       "Delete an entry of the call logs",
       BTCTL_METHOD(MWPBtPbap, DeleteCallLogById),
       {Whole("ID", "of the entry")},
       Accepted(),
       {},
       {NoLogEntryHasId(0)}},
      {"log clear", "Delete a call log", BTCTL_METHOD(MWPBtPbap, ClearCallLog), {Log()}, Accepted(), {}},
  };
}

}  // namespace btctl
