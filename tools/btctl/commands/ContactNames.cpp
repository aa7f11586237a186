#include "btctl/commands/ContactNames.h"

#include <algorithm>

#include <glib.h>

#include <bluetooth/MWPBtPbap.h>

#include "btctl/base/Failure.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/output/PlainText.h"
#include "btctl/output/TerminalSafe.h"
#include "glib/Owned.h"

namespace btctl {
namespace {

constexpr std::size_t kSuggestions = 5;

/// For comparisons that do not see the case of letters, in any script. A name can be given as it is shown.
std::string Folded(const std::string& text) {
  return OwnedText(g_utf8_casefold(TerminalSafe(text).c_str(), -1)).get();
}

bool IsId(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

Failure UnknownContact(const std::list<MWPTypeContact>& contacts, const std::string& name) {
  const std::string wanted = Folded(name);
  std::string similar;
  std::size_t count = 0;
  for (const MWPTypeContact& contact : contacts) {
    if (Folded(NameOf(contact)).find(wanted) != std::string::npos && count++ < kSuggestions) {
      similar += (similar.empty() ? "" : ", ") + NameOf(contact);
    }
  }
  const std::string hint = contacts.empty() ? "The phone book is empty: 'btctl contacts download' fetches it."
                           : similar.empty() ? "'btctl contacts list' shows who is there."
                                             : "There is: " + similar + ".";
  return {EXIT_UNKNOWN_NAME, "no contact is called '" + name + "'", hint};
}

/// How many contacts there are by the word of the service; 0 if it does not say.
std::size_t TotalOfContacts(Session& session) {
  try {
    const int total =
        MakeRequest(session, Value(), CallOf([] { return MWPBtPbap().GetContactCount(); })).result;
    return static_cast<std::size_t>(std::max(total, 0));
  } catch (const Failure&) {
    return 0;
  }
}

/// Asks for the phone book. If the name is not in it, it may be behind its end.
MWPTypeContact LookUp(Session& session, const std::string& name) {
  const std::list<MWPTypeContact> contacts = FetchContacts(session);
  try {
    return FindContact(contacts, name);
  } catch (const Failure& failure) {
    const std::size_t total = contacts.empty() ? 0 : TotalOfContacts(session);
    if (total <= contacts.size()) {
      throw;
    }
    throw Failure(failure.Code(), failure.what(),
                  "Not all contacts can be read, " + CutText(contacts.size(), total) + ".");
  }
}

std::string FirstNumber(const MWPTypeContact& contact) {
  for (const MWPTypeContactNumber& group : contact.listNumbers) {
    if (!group.vecValues.empty()) {
      return group.vecValues.front();
    }
  }
  throw Failure(EXIT_UNKNOWN_NAME, NameOf(contact) + " has no number");
}

}  // namespace

bool IsNumber(const std::string& text) {
  return text.find_first_of("0123456789*#") != std::string::npos &&
         text.find_first_not_of("0123456789+*#,;()-./ ") == std::string::npos;
}

const MWPTypeContact& FindContact(const std::list<MWPTypeContact>& contacts, const std::string& name) {
  const std::string wanted = Folded(name);
  const auto found = std::find_if(contacts.begin(), contacts.end(), [&](const MWPTypeContact& contact) {
    return Folded(NameOf(contact)) == wanted;
  });
  if (found == contacts.end()) {
    throw UnknownContact(contacts, name);
  }
  return *found;
}

void ResolveContacts(Context& context, const std::vector<Argument>& arguments, Given& given) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string text = given[i];
    const Meaning meaning = arguments[i].meaning;
    if (meaning == Meaning::NUMBER && !IsNumber(text)) {
      given.Set(i, FirstNumber(LookUp(context.session, text)));
    } else if (meaning == Meaning::CONTACT && !IsId(text)) {
      given.Set(i, std::to_string(LookUp(context.session, text).nContactId));
    }
  }
}

std::list<MWPTypeContact> FetchContacts(Session& session) {
  const auto contacts = std::make_shared<std::list<MWPTypeContact>>();
  MakeRequest(session, Value(), CallOf([contacts] { return MWPBtPbap().GetContactList(*contacts); }));
  return *contacts;
}

}  // namespace btctl
