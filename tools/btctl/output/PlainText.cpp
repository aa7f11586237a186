#include "btctl/output/PlainText.h"

#include <algorithm>

#include <glib.h>

#include "btctl/base/Json.h"
#include "btctl/output/TerminalSafe.h"

namespace btctl {
namespace {

constexpr const char* kMilliseconds[] = {"duration", "position", "totalLength"};

/// The number that a value is, or holds as text; -1 if it is none.
gint64 NumberOf(const Json& value) {
  if (value.is_number_integer()) {
    return value.get<gint64>();
  }
  gint64 number = -1;
  if (value.is_string()) {
    g_ascii_string_to_signed(value.get<std::string>().c_str(), 10, 0, G_MAXINT32, &number, nullptr);
  }
  return number;
}

/// 32,371
std::string Grouped(std::size_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t place = digits.size(); place > 3; place -= 3) {
    digits.insert(place - 3, ",");
  }
  return digits;
}

}  // namespace

std::string CutText(std::size_t listed, std::size_t total) {
  return Grouped(listed) + " of " + Grouped(total) + ": the segment is full";
}

std::string Joined(const Json& values, const char* separator) {
  std::string joined;
  for (const Json& value : values) {
    const std::string text = ToText(value);
    joined += joined.empty() || text.empty() ? text : separator + text;
  }
  return joined;
}

std::string ToText(const std::string& name, const Json& value) {
  const gint64 number = NumberOf(value);
  if (number < 0 ||
      std::find(std::begin(kMilliseconds), std::end(kMilliseconds), name) == std::end(kMilliseconds)) {
    return ToText(value);
  }
  const gint64 seconds = number / 1000;
  return std::to_string(seconds / 60) + (seconds % 60 < 10 ? ":0" : ":") + std::to_string(seconds % 60);
}

std::string ToText(const Json& value) {
  if (value.is_string()) {
    return TerminalSafe(value.get<std::string>());
  }
  if (value.is_boolean()) {
    return value.get<bool>() ? "yes" : "no";
  }
  if (value.is_array()) {
    return Joined(value, ", ");
  }
  return value.is_object() ? Joined(value, " ") : value.dump();
}

std::size_t WidthOf(const std::string& text) {
  std::size_t width = 0;
  for (const char* at = text.c_str(); *at != '\0'; at = g_utf8_next_char(at)) {
    const gunichar character = g_utf8_get_char(at);
    if (g_unichar_iszerowidth(character) == FALSE) {
      width += g_unichar_iswide(character) != FALSE ? 2 : 1;
    }
  }
  return width;
}

std::string Padded(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, WidthOf(text)), ' ');
}

std::vector<std::string> ColumnsOf(const Json& objects) {
  std::vector<std::string> columns;
  for (const Json& object : objects) {
    for (const auto& [name, value] : object.items()) {
      if (std::find(columns.begin(), columns.end(), name) == columns.end()) {
        columns.push_back(name);
      }
    }
  }
  return columns;
}

}  // namespace btctl
