#ifndef SERVICE_PHONEBOOK_CONTACTS_H
#define SERVICE_PHONEBOOK_CONTACTS_H

#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Both names, the first one first, with a blank between them; or the one that there is. Empty if there is
/// none.
std::string FullName(const Contact& contact);
/// Adds a number as the last of its kind. Numbers of one kind are kept together, as the segment has them; the
/// kinds stand in the order in which they were met. The same number may be there more than once.
void AddNumber(Contact& contact, NumberType type, std::string number);

}  // namespace btservice

#endif
