#ifndef SERVICE_SEGMENTS_LISTPACKER_H
#define SERVICE_SEGMENTS_LISTPACKER_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "service/stack/StackTypes.h"

namespace btservice {

/// Builds the contents of a list segment: a 32-bit count, then the records, items side by side without
/// padding. An integer is four bytes in the host's order, a text its bytes and a NUL.
///
/// A list too large for its segment ends with the last record that fits as a whole.
class ListPacker {
 public:
  explicit ListPacker(std::size_t capacity);

  ListPacker& Put(int value);
  /// A NUL inside the text ends it.
  ListPacker& Put(const std::string& text);
  /// Ends a record. False if it, or one before it, did not fit.
  bool EndRecord();

  int Count() const { return m_count; }
  /// Where the next item will lie.
  std::size_t Offset() const { return m_contents.size(); }
  /// The contents so far, count included.
  const Bytes& Contents();

 private:
  void Append(const void* data, std::size_t size);

  std::size_t m_capacity;
  Bytes m_contents;
  std::size_t m_end;  ///< of the last whole record
  bool m_full = false;
  std::int32_t m_count = 0;
};

}  // namespace btservice

#endif
