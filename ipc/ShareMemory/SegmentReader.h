#ifndef IPC_SHAREMEMORY_SEGMENTREADER_H
#define IPC_SHAREMEMORY_SEGMENTREADER_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

/// Gives the memory of a string or vector back before it is filled with count elements, if it is above 4 KiB
/// and more than twice what they need. Less is kept, to be used again: allocation is most of the cost of a
/// list. More is what an absurd segment has left, and would stay for as long as the caller keeps its list.
template <typename Container>
void GiveBackExcess(Container& container, std::size_t count) {
  constexpr std::size_t kWorthKeeping = 4096 / sizeof(typename Container::value_type);
  // The hint keeps the release out of the way of the reading: this is asked for each text of a list.
  if (__builtin_expect(container.capacity() > kWorthKeeping, 0) && container.capacity() > 2 * count) {
    Container().swap(container);
  }
}

/// Reads the packed items of a segment one after the other and never outside it, whatever the segment holds
/// and even while another process writes to it: every byte that decides how much is read is read once.
///
/// A 32-bit integer is four bytes in the host's order at any address; a string is its bytes and one NUL.
class SegmentReader {
 public:
  SegmentReader() = default;
  SegmentReader(const unsigned char* begin, const unsigned char* end) : m_cursor(begin), m_end(end) {}

  const unsigned char* Cursor() const { return m_cursor; }
  std::size_t Remaining() const { return static_cast<std::size_t>(m_end - m_cursor); }

  /// False, with value untouched, if fewer than four bytes are left.
  bool ReadInt(int& value) {
    std::int32_t item;
    if (Remaining() < sizeof item) {
      return false;
    }
    std::memcpy(&item, m_cursor, sizeof item);
    m_cursor += sizeof item;
    value = item;
    return true;
  }

  /// False, with text untouched, if no NUL is left. The memory that text already has is used again, unless it
  /// is far too much.
  bool ReadString(std::string& text) {
    const void* const nul = std::memchr(m_cursor, '\0', Remaining());
    if (nul == nullptr) {
      return false;
    }
    const auto* const textEnd = static_cast<const unsigned char*>(nul);
    const auto length = static_cast<std::size_t>(textEnd - m_cursor);
    GiveBackExcess(text, length);
    text.assign(reinterpret_cast<const char*>(m_cursor), length);
    m_cursor = textEnd + 1;
    return true;
  }

  /// False if no NUL is left.
  bool SkipString() {
    const void* const nul = std::memchr(m_cursor, '\0', Remaining());
    if (nul == nullptr) {
      return false;
    }
    m_cursor = static_cast<const unsigned char*>(nul) + 1;
    return true;
  }

 private:
  const unsigned char* m_cursor = nullptr;
  const unsigned char* m_end = nullptr;
};

#endif
