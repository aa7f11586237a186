#include "btctl/output/PlainText.h"

#include <algorithm>

#include <glib.h>

namespace btctl {
namespace {

std::string WithoutControls(const std::string& text) {
  g_autofree char* valid = g_utf8_make_valid(text.c_str(), static_cast<gssize>(text.size()));
  std::string clean;
  for (const char *at = valid, *next = at; *at != '\0'; at = next) {
    next = g_utf8_next_char(at);
    const bool isControl = g_unichar_iscntrl(g_utf8_get_char(at)) != FALSE;
    clean += isControl ? "\uFFFD" : std::string(at, next);
  }
  return clean;
}

std::string Joined(const Json& values, const char* separator) {
  std::string text;
  for (const Json& value : values) {
    text += text.empty() ? ToText(value) : separator + ToText(value);
  }
  return text;
}

}  // namespace

std::string ToText(const Json& value) {
  if (value.is_string()) {
    return WithoutControls(value.get<std::string>());
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
