#ifndef SERVICE_MODEL_CONTACTS_H
#define SERVICE_MODEL_CONTACTS_H

#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Both names, or the one that there is.
std::string FullName(const Contact& contact);
/// Numbers of one kind are kept together.
void AddNumber(Contact& contact, NumberType type, std::string number);

/// So many contacts with names in several scripts and up to four numbers, always the same ones.
std::vector<Contact> MadeUpContacts(int count);

}  // namespace btservice

#endif
