#ifndef BENCH_BOOK_STRINGPASS_H
#define BENCH_BOOK_STRINGPASS_H

#include <cstddef>

/// The yardstick of reading a phone book: finds the end of every string of the book in SH_CONTACT_LIST, which
/// this process must have attached, and no more. Answers the number of bytes walked.
std::size_t FindEndOfEveryString();

#endif
