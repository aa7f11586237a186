#ifndef BENCH_PEERS_BOOKMESSAGE_H
#define BENCH_PEERS_BOOKMESSAGE_H

// The phone book as the body of one D-Bus message, (a(issa(ias))).

#include "bench/book/PhoneBook.h"
#include "glib/Owned.h"

OwnedVariant PackAsMessage(const PhoneBook& book);
PhoneBook UnpackMessage(GVariant* message);

#endif
