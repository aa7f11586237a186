#ifndef TESTS_FUZZ_LISTWORLD_H
#define TESTS_FUZZ_LISTWORLD_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include <bluetooth/ShareMemID.h>

#include "fuzz/GuardedMemory.h"
#include "ipc/BtClientIpcAdapter.h"

namespace bttest {

/// The list segments as guarded memory of this process, with any content, and an adapter whose calls for
/// lists succeed without a service. One at a time.
class ListWorld {
 public:
  /// No segment is larger than this. Smaller ones need /app/bin/btservice, and segments of the machine.
  explicit ListWorld(std::size_t largest = SIZE_MAX);
  ~ListWorld();
  ListWorld(const ListWorld&) = delete;
  ListWorld& operator=(const ListWorld&) = delete;

  BtClientIpcAdapter& Adapter() { return m_adapter; }

  /// The memory of a segment.
  GuardedMemory& Segment(ShareMemID id) { return *m_segments.at(id); }

  /// Makes a segment hold head at its begin, tail at its end and filler in between. Where the two overlap,
  /// the tail counts; what is longer than the segment is cut off.
  void Write(ShareMemID id, const std::vector<unsigned char>& head,
             const std::vector<unsigned char>& tail = {}, unsigned char filler = 0);

  /// The number of errors that were logged since the last time this was asked.
  int TakeErrors();

 private:
  struct Content {
    unsigned char filler = 0;
    std::size_t head = 0;  // bytes at either end that are no filler
    std::size_t tail = 0;
  };

  BtClientIpcAdapter m_adapter;
  std::map<ShareMemID, std::unique_ptr<GuardedMemory>> m_segments;
  std::map<ShareMemID, Content> m_contents;
};

}  // namespace bttest

#endif
