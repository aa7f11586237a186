#include "fuzz/ListWorld.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <string_view>

#include <glib.h>

#include "ipc/BtProxy.h"
#include "ipc/ShareMemory/SegmentCatalogue.h"
#include "ipc/ShareMemory/ShareMemory.h"

namespace bttest {
namespace {

std::atomic<int> s_errors{0};

/// Counts what the library logs at error level and drops everything.
GLogWriterOutput CountErrors(GLogLevelFlags, const GLogField* fields, gsize count, gpointer) {
  for (gsize i = 0; i < count; ++i) {
    if (std::string_view(fields[i].key) == "ZLOG_LEVEL" &&
        std::string_view(static_cast<const char*>(fields[i].value)) == "100") {
      ++s_errors;
    }
  }
  return G_LOG_WRITER_HANDLED;
}

/// A process can set its log writer once.
void CountErrorsFromNowOn() {
  [[maybe_unused]] static const bool isSet = (g_log_set_writer_func(CountErrors, nullptr, nullptr), true);
}

// The calls never get as far as to use it.
int s_notAProxy;

}  // namespace

ListWorld::ListWorld() {
  CountErrorsFromNowOn();
  g_BtProxy = reinterpret_cast<ComZelkLinuxBluetooth*>(&s_notAProxy);
  ShareMemory::m_ShmId_AddrMap.clear();
  for (const SegmentEntry& entry : kSegmentCatalogue) {
    if (g_ShmIdMap.count(entry.id) != 0) {
      m_segments[entry.id] = std::make_unique<GuardedMemory>(entry.size);
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

int ListWorld::TakeErrors() { return s_errors.exchange(0); }

}  // namespace bttest
