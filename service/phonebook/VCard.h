#ifndef SERVICE_PHONEBOOK_VCARD_H
#define SERVICE_PHONEBOOK_VCARD_H

#include <string>
#include <vector>

#include "service/stack/StackTypes.h"

namespace btservice {

/// What a vCard file holds.
struct VCards {
  std::vector<Contact> contacts;  ///< their ids count from 1
  std::size_t skipped = 0;        ///< cards that make no sense, and whatever else is between the cards
  std::vector<std::string>
      problems;  ///< "book.vcf:12: expected ..., got ...": of the first that were skipped
};

/// Reads the contacts of a vCard text (2.1, 3.0 or 4.0): names and telephone numbers, nothing else. A card
/// that makes no sense is skipped, and the others are read: whatever the text is, nothing is thrown and
/// nothing is logged. All texts are UTF-8 without control characters. fileName is for the problems alone. The
/// time it takes grows with the length of the text, and so do the contacts: the caller limits both.
VCards ParseVCards(const std::string& text, const std::string& fileName);

}  // namespace btservice

#endif
