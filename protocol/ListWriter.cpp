#include "protocol/ListWriter.h"

#include <cstring>

ListWriter::ListWriter(std::size_t capacity)
    : m_capacity(capacity), m_contents(sizeof(m_count)), m_end(m_contents.size()) {}

ListWriter& ListWriter::Put(int value) {
  const std::int32_t word = value;
  Append(&word, sizeof(word));
  return *this;
}

ListWriter& ListWriter::Put(const std::string& text) {
  Append(text.c_str(), std::strlen(text.c_str()) + 1);
  return *this;
}

void ListWriter::Append(const void* data, std::size_t size) {
  if (m_full || size > m_capacity - m_contents.size()) {
    m_full = true;
    return;
  }
  const auto* const bytes = static_cast<const std::uint8_t*>(data);
  m_contents.insert(m_contents.end(), bytes, bytes + size);
}

bool ListWriter::EndRecord() {
  if (!m_full) {
    m_end = m_contents.size();
    ++m_count;
  }
  return !m_full;
}

const std::vector<std::uint8_t>& ListWriter::Contents() {
  m_contents.resize(m_end);
  std::memcpy(m_contents.data(), &m_count, sizeof(m_count));
  return m_contents;
}
