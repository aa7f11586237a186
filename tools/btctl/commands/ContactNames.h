#ifndef TOOLS_BTCTL_COMMANDS_CONTACTNAMES_H
#define TOOLS_BTCTL_COMMANDS_CONTACTNAMES_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

#include "btctl/commands/Command.h"

namespace btctl {

/// Whether a text can be dialled as it is.
bool IsNumber(const std::string& text);

/// The contact of that name, whatever the case of its letters. Throws a Failure if there is none.
const MWPTypeContact& FindContact(const std::list<MWPTypeContact>& contacts, const std::string& name);

/// Puts numbers and ids in the place of the names of contacts among the arguments. Only a name that has to be
/// looked up makes a request.
void ResolveContacts(Context& context, const std::vector<Argument>& arguments, Given& given);

/// The phone book as the service has it.
std::list<MWPTypeContact> FetchContacts(Session& session);

}  // namespace btctl

#endif
