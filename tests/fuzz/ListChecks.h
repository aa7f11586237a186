#ifndef TESTS_FUZZ_LISTCHECKS_H
#define TESTS_FUZZ_LISTCHECKS_H

#include <list>
#include <string>

#include "fuzz/ListWorld.h"

// Read what is in a segment, whatever that is, and say what is wrong with what comes out; nothing if all is
// well: every record before the first fault, and one error in the log if there is a fault.

namespace bttest {

/// Of SH_CONTACT_LIST or SH_FAV_CONTACT_LIST. The list is replaced.
std::string CheckContacts(ListWorld& world, ShareMemID id, std::list<MWPTypeContact>& contacts);
/// The entries come behind those that are in the list.
std::string CheckCallLogs(ListWorld& world, std::list<MWPTypeCallLog>& logs);
/// A slot that is not whole stays as it is.
std::string CheckCallInfo(ListWorld& world, MWPTypeCallInfo& info);
/// Of ShmUnPackUtils: the count of a list segment and the texts behind it.
std::string CheckTexts(ListWorld& world, ShareMemID id);

}  // namespace bttest

#endif
