#ifndef SERVICE_PHONEBOOK_CONTACTS_H
#define SERVICE_PHONEBOOK_CONTACTS_H

#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Both names, or the one that there is.
std::string FullName(const Contact& contact);
/// Numbers of one kind are kept together.
void AddNumber(Contact& contact, NumberType type, std::string number);

}  // namespace btservice

#endif
