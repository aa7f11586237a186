#ifndef PROTOCOL_LISTWRITER_H
#define PROTOCOL_LISTWRITER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Builds the contents of a list segment: a 32-bit count, then the records, items side by side without
/// padding. An integer is four bytes in the host's order, a text its bytes and a NUL. Records.h writes the
/// items of each kind of record.
///
/// A list too large for its segment ends with the last record that fits as a whole.
class ListWriter {
 public:
  explicit ListWriter(std::size_t capacity);

  ListWriter& Put(int value);
  /// A NUL inside the text ends it.
  ListWriter& Put(const std::string& text);
  /// Ends a record. False if it, or one before it, did not fit.
  bool EndRecord();

  int Count() const { return m_count; }
  /// Where the next item will lie.
  std::size_t Offset() const { return m_contents.size(); }
  /// The contents so far, count included.
  const std::vector<std::uint8_t>& Contents();

 private:
  void Append(const void* data, std::size_t size);

  std::size_t m_capacity;
  std::vector<std::uint8_t> m_contents;
  std::size_t m_end;  ///< of the last whole record
  bool m_full = false;
  std::int32_t m_count = 0;
};

#endif
