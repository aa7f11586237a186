#ifndef TESTS_FUZZ_EXPECTATION_H
#define TESTS_FUZZ_EXPECTATION_H

#include <list>
#include <string>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

#include "fuzz/GuardedMemory.h"

// What must come out of a segment, whatever it holds, worked out the plain way: byte by byte, one record
// copied after the other. What the library delivers is compared with it.

namespace bttest {

/// What a read must deliver, and whether it must complain.
template <typename Delivery>
struct Expected {
  Delivery delivery;
  bool isFaulty = false;
};

Expected<std::list<MWPTypeContact>> ExpectContacts(const GuardedMemory& segment);
Expected<std::list<MWPTypeCallLog>> ExpectCallLogs(const GuardedMemory& segment);
/// The slots that are not whole must be left as they are in before.
Expected<MWPTypeCallInfo> ExpectCallInfo(const GuardedMemory& segment, const MWPTypeCallInfo& before);
/// A device without a Bluetooth address is a fault.
Expected<std::list<MWPTypeDevice>> ExpectDevices(const GuardedMemory& segment);
/// The texts behind the count, up to the first that has no end.
Expected<std::vector<std::string>> ExpectTexts(const GuardedMemory& segment);

}  // namespace bttest

#endif
