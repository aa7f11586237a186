#ifndef BENCH_PEERS_BOOKCARDS_H
#define BENCH_PEERS_BOOKCARDS_H

#include <string>

#include "bench/book/PhoneBook.h"

/// Reads the phone book from vCards with libvformat.
PhoneBook ParseVCards(const std::string& cards);

#endif
