#ifndef SERVICE_SIMULATION_WORLD_MADEUPCONTACTS_H
#define SERVICE_SIMULATION_WORLD_MADEUPCONTACTS_H

#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// So many contacts with names in several scripts and up to four numbers, always the same ones.
std::vector<Contact> MadeUpContacts(int count);

}  // namespace btservice

#endif
