#include "service/frontend/segments/TextCut.h"

namespace btservice {
namespace {

constexpr std::size_t kMostContinuationBytes = 3;

bool IsContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

}  // namespace

std::string CutText(const std::string& text, std::size_t mostBytes) {
  if (text.size() <= mostBytes) {
    return text;
  }
  // A character that does not fit as a whole goes as a whole, from its first byte on.
  for (std::size_t back = 0; back <= kMostContinuationBytes && back <= mostBytes; ++back) {
    if (!IsContinuationByte(text[mostBytes - back])) {
      return text.substr(0, mostBytes - back);
    }
  }
  return text.substr(0, mostBytes);
}

}  // namespace btservice
