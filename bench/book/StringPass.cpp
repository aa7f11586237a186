#include "bench/book/StringPass.h"

#include <cstdint>
#include <cstring>

#include "ipc/ShareMemory/ShareMemory.h"
#include "protocol/Segments.h"

// Neither inline nor in a source that uses it: whoever does not look at the answer still has it worked out.
__attribute__((noinline)) std::size_t FindEndOfEveryString() {
  const auto* const begin = static_cast<const unsigned char*>(ShareMemory::GetShareMemory(SH_CONTACT_LIST));
  const unsigned char* const end = begin + kSegmentCatalogue[SH_CONTACT_LIST].size;
  const unsigned char* cursor = begin;
  const auto readInt = [&cursor] {
    std::int32_t value;
    std::memcpy(&value, cursor, sizeof value);
    cursor += sizeof value;
    return value;
  };
  const auto skipString = [&cursor, end] {
    const void* const nul = std::memchr(cursor, 0, static_cast<std::size_t>(end - cursor));
    cursor = static_cast<const unsigned char*>(nul) + 1;
  };
  for (int contacts = readInt(); contacts > 0; --contacts) {
    readInt();
    skipString();
    skipString();
    for (int groups = readInt(); groups > 0; --groups) {
      readInt();
      for (int numbers = readInt(); numbers > 0; --numbers) {
        skipString();
      }
    }
  }
  return static_cast<std::size_t>(cursor - begin);
}
