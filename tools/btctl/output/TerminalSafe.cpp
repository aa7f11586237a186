#include "btctl/output/TerminalSafe.h"

#include <array>
#include <cstdio>

#include <glib.h>

#include "btctl/base/Json.h"
#include "glib/Owned.h"

namespace btctl {
namespace {

bool IsWithin(gunichar character, gunichar first, gunichar last) {
  return character >= first && character <= last;
}

/// Marks and controls of the direction of writing. They have no shape of their own, but move other text.
bool TurnsText(gunichar character) {
  return character == 0x061C || IsWithin(character, 0x200E, 0x200F) || IsWithin(character, 0x202A, 0x202E) ||
         IsWithin(character, 0x2066, 0x2069);
}

/// Joiners are not among them: names in many scripts, and emoji, need them.
bool IsSafe(gunichar character) {
  const bool endsLine = IsWithin(character, 0x2028, 0x2029);
  return g_unichar_iscntrl(character) == FALSE && !endsLine && !TurnsText(character);
}

/// The text with `replace` of each character that is not safe.
template <typename Replace>
std::string Filtered(const std::string& text, const Replace& replace) {
  const OwnedText valid(g_utf8_make_valid(text.c_str(), static_cast<gssize>(text.size())));
  std::string filtered;
  for (const char *at = valid.get(), *next = at; *at != '\0'; at = next) {
    next = g_utf8_next_char(at);
    const gunichar character = g_utf8_get_char(at);
    filtered += IsSafe(character) ? std::string(at, next) : replace(character);
  }
  return filtered;
}

std::string JsonEscape(gunichar character) {
  std::array<char, sizeof "\\uFFFF"> escape{};
  std::snprintf(escape.data(), escape.size(), "\\u%04x", character & 0xFFFFU);
  return escape.data();
}

}  // namespace

std::string TerminalSafe(const std::string& text) {
  return Filtered(text, [](gunichar) { return std::string("\uFFFD"); });
}

std::string ToLine(const Json& value) {
  // JSON itself is ASCII: whatever is replaced is inside a text.
  return Filtered(value.dump(-1, ' ', false, Json::error_handler_t::replace), JsonEscape);
}

}  // namespace btctl
