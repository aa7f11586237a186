#ifndef TESTS_FUZZ_LISTINPUT_H
#define TESTS_FUZZ_LISTINPUT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <vector>

#include <bluetooth/ShareMemID.h>

namespace bttest {

/// An input of the fuzz target `lists`: what is put into a segment. The first four bytes of an input say
/// where the others go: which segment is read and how; what fills the segment; and how many of the other
/// bytes (two bytes, the lower first) are put at the segment's end instead of its begin.
struct ListInput {
  std::size_t road = 0;  ///< a place in kRoadSegments
  unsigned char filler = 0;
  std::vector<unsigned char> head;
  std::vector<unsigned char> tail;

  /// Which segment each way to read reads.
  static constexpr ShareMemID kRoadSegments[] = {SH_CONTACT_LIST,   SH_FAV_CONTACT_LIST, SH_CALL_LOG_LIST,
                                                 SH_CALL_INFO_LIST, SH_PAIRED_LIST,      SH_CALL_LOG_LIST};

  ShareMemID Segment() const { return kRoadSegments[road]; }

  /// Nothing if it is too short.
  static std::optional<ListInput> Parse(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHeaderBytes = 4;
    if (size < kHeaderBytes) {
      return std::nullopt;
    }
    const std::size_t wantedTail = data[2] + 256u * data[3];
    const std::uint8_t* const end = data + size;
    const std::uint8_t* const tail = end - std::min(wantedTail, size - kHeaderBytes);
    return ListInput{data[0] % std::size(kRoadSegments), data[1], {data + kHeaderBytes, tail}, {tail, end}};
  }

  /// The segment that it makes, of so many bytes. Where head and tail overlap, the tail counts; what is
  /// longer is cut off.
  std::vector<unsigned char> Fill(std::size_t size) const {
    std::vector<unsigned char> segment(size, filler);
    std::copy_n(head.begin(), std::min(head.size(), size), segment.begin());
    const std::size_t tailSize = std::min(tail.size(), size);
    std::copy_n(tail.begin(), tailSize, segment.end() - static_cast<std::ptrdiff_t>(tailSize));
    return segment;
  }
};

}  // namespace bttest

#endif
