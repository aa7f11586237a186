#include "service/files/Quote.h"

#include <cstdio>

#include <glib.h>

namespace btservice {
namespace {

// Bytes of the text.
constexpr std::size_t kLongestQuotation = 60;
constexpr std::size_t kLongestPath = 512;

bool IsInvalid(gunichar character) {
  return character == static_cast<gunichar>(-1) || character == static_cast<gunichar>(-2);
}

/// Formatting characters turn the text around them, and separators end the line.
bool IsShown(gunichar character) {
  return g_unichar_isprint(character) != FALSE && g_unichar_type(character) != G_UNICODE_FORMAT &&
         g_unichar_type(character) != G_UNICODE_LINE_SEPARATOR &&
         g_unichar_type(character) != G_UNICODE_PARAGRAPH_SEPARATOR;
}

std::string Formatted(const char* format, unsigned value) {
  char text[16];
  const int length = std::snprintf(text, sizeof(text), format, value);
  return std::string(text, static_cast<std::size_t>(length));
}

std::string BeginningOf(std::string_view text, std::size_t longest) {
  std::string visible;
  std::size_t place = 0;
  while (place < text.size() && place < longest) {
    const char* const start = text.data() + place;
    const gunichar character = g_utf8_get_char_validated(start, static_cast<gssize>(text.size() - place));
    if (IsInvalid(character)) {
      visible += Formatted("\\x%02X", static_cast<unsigned char>(*start));
      ++place;
      continue;
    }
    const std::size_t length =
        character == 0 ? 1 : static_cast<std::size_t>(g_utf8_skip[static_cast<guchar>(*start)]);
    if (IsShown(character)) {
      visible.append(start, length);
    } else {
      visible += Formatted("\\u{%04X}", character);
    }
    place += length;
  }
  return place < text.size() ? visible + "..." : visible;
}

}  // namespace

std::string Visible(std::string_view text) { return BeginningOf(text, kLongestQuotation); }

std::string VisiblePath(std::string_view path) { return BeginningOf(path, kLongestPath); }

std::string Quote(std::string_view text) { return "'" + Visible(text) + "'"; }

}  // namespace btservice
