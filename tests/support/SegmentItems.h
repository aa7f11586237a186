#ifndef TESTS_SUPPORT_SEGMENTITEMS_H
#define TESTS_SUPPORT_SEGMENTITEMS_H

#include <string>
#include <vector>

#include "protocol/Segments.h"
#include "support/Segments.h"

namespace bttest {

/// The items of a list segment as a test expects or wants them: integers of four bytes, lowest first, and
/// texts with a NUL at their end, one after the other. Shares nothing with what the service writes lists
/// with, nor with what the library reads them with.
class SegmentItems {
 public:
  SegmentItems& Int(int value) {
    const auto bits = static_cast<unsigned>(value);
    for (int shift = 0; shift < 32; shift += 8) {
      m_bytes.push_back(static_cast<unsigned char>(bits >> shift));
    }
    return *this;
  }
  SegmentItems& Text(const std::string& text) {
    Raw(text);
    m_bytes.push_back(0);
    return *this;
  }
  /// Bytes as they are.
  SegmentItems& Raw(const std::string& bytes) {
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    return *this;
  }

  const std::vector<unsigned char>& Bytes() const { return m_bytes; }

  /// Puts the items into a segment, and zeros behind them.
  void Publish(ShareMemID id) const {
    std::vector<unsigned char> segment = m_bytes;
    segment.resize(kSegmentCatalogue[id].size);
    WriteSegment(id, 0, segment);
  }

 private:
  std::vector<unsigned char> m_bytes;
};

}  // namespace bttest

#endif
