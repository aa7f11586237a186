#ifndef BENCH_BOOK_PHONEBOOK_H
#define BENCH_BOOK_PHONEBOOK_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

using PhoneBook = std::list<MWPTypeContact>;

/// The phone book that everything is measured with, the same in every process: as many contacts as fit into
/// SH_CONTACT_LIST. Two names of 5 to 20 letters, 1 to 3 groups of 1 or 2 numbers of 8 to 15 digits: part of
/// the names, and none of the numbers, are too long for what a std::string holds in itself.
PhoneBook MakeFullBook();

/// The book as the segment holds it.
std::vector<unsigned char> PackForSegment(const PhoneBook& book);

/// The book as vCards, one property for each number.
std::string PackAsVCards(const PhoneBook& book);

bool AreEqual(const PhoneBook& left, const PhoneBook& right);

#endif
