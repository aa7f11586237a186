#ifndef TESTS_FUZZ_LISTPACKER_H
#define TESTS_FUZZ_LISTPACKER_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

// What a service puts into the list segments. Shares nothing with what the library reads them with, nor with
// what the simulated service writes them with.

namespace bttest {

using Bytes = std::vector<unsigned char>;

Bytes Pack(const std::list<MWPTypeContact>& contacts);
Bytes Pack(const std::list<MWPTypeCallLog>& logs);
Bytes Pack(const MWPTypeCallInfo& info);

/// The bytes of an integer in a segment.
Bytes PackInteger(int value);

}  // namespace bttest

#endif
