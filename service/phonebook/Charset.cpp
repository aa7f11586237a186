#include "service/phonebook/Charset.h"

#include <algorithm>

#include "service/phonebook/AsciiCase.h"

namespace btservice {
namespace {

constexpr std::size_t kLongestName = 40;
const GIConv kNoConverter = reinterpret_cast<GIConv>(-1);  // as g_iconv_open says it

bool IsUtf8(std::string_view bytes) {
  return g_utf8_validate_len(bytes.data(), bytes.size(), nullptr) != FALSE;
}

/// Letters, digits and what stands between them: the options that iconv takes behind a slash are not asked
/// for by a file.
bool IsName(std::string_view name) {
  return name.size() <= kLongestName && std::all_of(name.begin(), name.end(), [](char c) {
           return g_ascii_isalnum(c) != FALSE || std::string_view("-_.:").find(c) != std::string_view::npos;
         });
}

void BlankControlCharacters(std::string& text) {
  for (char& c : text) {
    c = g_ascii_iscntrl(c) != FALSE ? ' ' : c;
  }
}

}  // namespace

std::optional<std::string> Charset::ToUtf8(std::string_view bytes, std::string_view name) {
  std::optional<std::string> text;
  if (name.empty() || IsSameWord(name, "UTF-8")) {
    text = std::string(bytes);
  } else {
    text = Convert(bytes, name);
  }
  if (!text) {
    return text;
  }
  BlankControlCharacters(*text);
  if (IsUtf8(*text)) {
    return text;
  }
  return name.empty() ? ToUtf8(bytes, "ISO-8859-1") : std::nullopt;
}

std::optional<std::string> Charset::Convert(std::string_view bytes, std::string_view name) {
  if (!Open(name)) {
    return std::nullopt;
  }
  g_iconv(m_converter.get(), nullptr, nullptr, nullptr,
          nullptr);  // forgets what the last text has left behind
  gsize read = 0;
  gsize written = 0;
  const OwnedText text(g_convert_with_iconv(bytes.data(), static_cast<gssize>(bytes.size()),
                                            m_converter.get(), &read, &written, nullptr));
  if (text == nullptr || read != bytes.size()) {
    return std::nullopt;  // an unfinished character at the end is not an error to GLib
  }
  return std::string(text.get(), written);
}

bool Charset::Open(std::string_view name) {
  if (m_converter != nullptr && m_name == name) {
    return true;
  }
  if (!IsName(name)) {
    return false;
  }
  m_converter.reset();
  m_name = name;
  const GIConv converter = g_iconv_open("UTF-8", m_name.c_str());
  if (converter == kNoConverter) {
    return false;
  }
  m_converter.reset(converter);
  return true;
}

}  // namespace btservice
