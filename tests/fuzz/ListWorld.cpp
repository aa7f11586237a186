#include "fuzz/ListWorld.h"

#include <algorithm>
#include <cstring>

#include "fuzz/LogCount.h"
#include "ipc/BtProxy.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "protocol/Segments.h"

namespace bttest {
namespace {

// The calls never get as far as to use it.
int s_notAProxy;

}  // namespace

ListWorld::ListWorld(std::size_t largest) {
  CountErrorsFromNowOn();
  g_BtProxy = reinterpret_cast<ComZelkLinuxBluetooth*>(&s_notAProxy);
  ShareMemory::m_ShmId_AddrMap.clear();
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    if (g_ShmIdMap.count(entry.id) != 0) {
      const std::size_t size = std::min(entry.size, largest);
      if (size < entry.size) {
        // The library takes a segment to be as large as it asked for. Nobody looks at this one.
        ShareMemory::InitShareMemory(entry.id, static_cast<unsigned int>(size));
      }
      m_segments[entry.id] = std::make_unique<GuardedMemory>(size);
      ShareMemory::m_ShmId_AddrMap[entry.id] = m_segments[entry.id]->Begin();
    }
  }
  TakeErrors();
}

ListWorld::~ListWorld() {
  ShareMemory::m_ShmId_AddrMap.clear();
  g_BtProxy = nullptr;
}

void ListWorld::Write(ShareMemID id, const std::vector<unsigned char>& head,
                      const std::vector<unsigned char>& tail, unsigned char filler) {
  GuardedMemory& memory = Segment(id);
  Content& content = m_contents[id];
  // Most of a large segment is the same filler again, and writing that would be most of the time.
  if (content.filler == filler) {
    std::memset(memory.Begin(), filler, content.head);
    std::memset(memory.Begin() + memory.Size() - content.tail, filler, content.tail);
  } else {
    std::memset(memory.Begin(), filler, memory.Size());
  }
  content = {filler, std::min(head.size(), memory.Size()), std::min(tail.size(), memory.Size())};
  std::copy_n(head.begin(), content.head, memory.Begin());
  std::copy_n(tail.begin(), content.tail, memory.Begin() + memory.Size() - content.tail);
}

int ListWorld::TakeErrors() { return bttest::TakeErrors(); }

}  // namespace bttest
