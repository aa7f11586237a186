#ifndef TESTS_FUZZ_DECODERCHECKS_H
#define TESTS_FUZZ_DECODERCHECKS_H

#include <string>

#include <bluetooth/ShareMemID.h>

#include "fuzz/GuardedMemory.h"

namespace bttest {

/// Reads a segment, whatever is in it, as libbtasync does: copied up to the end of its list, and then
/// decoded. Says what is wrong with what comes out; nothing if all is well: every record, or Malformed if not
/// all are whole. Of SH_CONTACT_LIST, SH_FAV_CONTACT_LIST, SH_CALL_LOG_LIST, SH_CALL_INFO_LIST,
/// SH_PAIRED_LIST.
std::string CheckDecoder(const GuardedMemory& segment, ShareMemID id);

}  // namespace bttest

#endif
