#ifndef SERVICE_WORLD_VCARD_H
#define SERVICE_WORLD_VCARD_H

#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Reads the contacts of a vCard text (2.1, 3.0 or 4.0): names and telephone numbers, nothing else. Ids count
/// from 1. Throws FileError for a text that is not made of whole cards.
std::vector<Contact> ParseVCards(const std::string& text, const std::string& fileName);

}  // namespace btservice

#endif
