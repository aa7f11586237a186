#ifndef BENCH_PEERS_BOOKMESSAGE_H
#define BENCH_PEERS_BOOKMESSAGE_H

// The phone book as the body of one D-Bus message, (a(issa(ias))).

#include <glib.h>

#include "bench/book/PhoneBook.h"

GVariant* PackAsMessage(const PhoneBook& book);
PhoneBook UnpackMessage(GVariant* message);

#endif
