#include "service/frontend/segments/CallTableSegment.h"

#include <atomic>
#include <cstring>

namespace btservice {
namespace {

using Word = std::int32_t;

/// A word at any address.
struct [[gnu::packed, gnu::may_alias]] UnalignedWord {
  Word value;
};

Word Load(const Bytes& contents, std::size_t offset) {
  Word word = 0;
  if (offset + sizeof(word) <= contents.size()) {
    std::memcpy(&word, contents.data() + offset, sizeof(word));
  }
  return word;
}

/// One store: a reader finds the old value or the new one. Where the word lies across two cache lines that
/// holds as long as only one of its bytes changes, which for seconds is 255 times of 256.
void Store(std::uint8_t* place, Word value) {
  reinterpret_cast<volatile UnalignedWord*>(place)->value = value;
}

bool OnlySecondsDiffer(const PackedCallTable& before, const PackedCallTable& now) {
  if (before.contents.size() != now.contents.size() || before.seconds != now.seconds) {
    return false;
  }
  Bytes expected = before.contents;
  for (const std::size_t offset : now.seconds) {
    std::memcpy(expected.data() + offset, now.contents.data() + offset, sizeof(Word));
  }
  return expected == now.contents;
}

}  // namespace

void RewriteCallTable(std::uint8_t* memory, const PackedCallTable& before, const PackedCallTable& now) {
  if (OnlySecondsDiffer(before, now)) {
    for (const std::size_t offset : now.seconds) {
      if (Load(before.contents, offset) != Load(now.contents, offset)) {
        Store(memory + offset, Load(now.contents, offset));
      }
    }
    return;
  }
  const Word count = Load(now.contents, 0);
  const bool shrinks = count < Load(before.contents, 0);
  if (shrinks) {
    Store(memory, count);
  }
  std::atomic_thread_fence(std::memory_order_seq_cst);
  std::memcpy(memory + sizeof(count), now.contents.data() + sizeof(count),
              now.contents.size() - sizeof(count));
  if (before.contents.size() > now.contents.size()) {
    std::memset(memory + now.contents.size(), 0, before.contents.size() - now.contents.size());
  }
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (!shrinks) {
    Store(memory, count);
  }
}

bool CallTableSegment::Publish(const std::vector<CallInfo>& calls) {
  bool isOther = false;
  auto* const memory = static_cast<std::uint8_t*>(m_segments.Attach(SH_CALL_INFO_LIST, &isOther));
  if (memory == nullptr) {
    return false;
  }
  const std::size_t size = kSegmentCatalogue[SH_CALL_INFO_LIST].size;
  if (isOther) {
    // Whoever was here before may have left anything.
    Store(memory, 0);
    std::memset(memory, 0, size);
    m_written = {};
  }
  PackedCallTable now = PackCallTable(calls, size);
  RewriteCallTable(memory, m_written, now);
  m_written = std::move(now);
  return true;
}

}  // namespace btservice
