#include "service/phonebook/VCardProperty.h"

#include <algorithm>

#include <glib.h>

#include "service/phonebook/AsciiCase.h"

namespace btservice {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool IsBlankLine(std::string_view line) {
  return std::all_of(line.begin(), line.end(), [](char c) { return IsBlank(c); });
}

std::string_view WithoutBlanksAtEnd(std::string_view line) {
  return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

bool IsEndOfCard(std::string_view line) { return IsSameWord(WithoutBlanksAtEnd(line), "END:VCARD"); }

bool IsBase64(std::string_view line) {
  return !line.empty() && std::all_of(line.begin(), line.end(), [](char c) {
    return g_ascii_isalnum(c) != FALSE || c == '+' || c == '/' || c == '=';
  });
}

/// The place of the first such character that is not in quotes.
std::size_t FindOutsideQuotes(std::string_view text, char wanted) {
  bool inQuotes = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == wanted && !inQuotes) {
      return i;
    }
    inQuotes ^= text[i] == '"';
  }
  return std::string_view::npos;
}

/// Where the parts of a line are: "item1.TEL;TYPE=CELL:112".
struct Head {
  std::size_t colon = std::string_view::npos;      ///< before the value; npos if the line is no property
  std::size_t semicolon = std::string_view::npos;  ///< before the parameters; npos if there are none
  std::size_t name = 0;                            ///< behind the group
};

/// One pass over the few letters before the value: this is done for each line of a book.
Head FindHead(std::string_view line) {
  Head head;
  bool inQuotes = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c > ';') {
      continue;  // most of them
    }
    if (c == '"') {
      inQuotes = !inQuotes;
    } else if (inQuotes) {
      continue;
    } else if (c == ':') {
      head.colon = i;
      return head;
    } else if (c == ';' && head.semicolon == std::string_view::npos) {
      head.semicolon = i;
    } else if (c == '.' && head.semicolon == std::string_view::npos) {
      head.name = i + 1;
    }
  }
  head.colon = line.find(':');  // a quotation mark may be alone: it means nothing then
  return head;
}

/// Takes what is before the separator, and the separator, off the rest.
std::string_view TakeUpTo(std::string_view& rest, char separator) {
  const std::size_t end = std::min(FindOutsideQuotes(rest, separator), rest.size());
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return part;
}

std::string_view WithoutQuotes(std::string_view text) {
  const bool isQuoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return isQuoted ? text.substr(1, text.size() - 2) : text;
}

void TakeEncoding(std::string_view word, VCardProperty& property) {
  if (IsSameWord(word, "QUOTED-PRINTABLE")) {
    property.encoding = VCardProperty::Encoding::QUOTED_PRINTABLE;
  } else if (IsSameWord(word, "BASE64") || IsSameWord(word, "B")) {
    property.encoding = VCardProperty::Encoding::BASE64;
  }
}

void TakeType(std::string_view type, VCardProperty& property) {
  property.isCell |= IsSameWord(type, "CELL");
  property.isHome |= IsSameWord(type, "HOME");
  property.isWork |= IsSameWord(type, "WORK");
}

/// A parameter has a name, "TYPE=CELL,VOICE", or is a word alone, as in old cards: "CELL".
void TakeParameter(std::string_view parameter, VCardProperty& property) {
  const std::size_t equals = parameter.find('=');
  if (equals == std::string_view::npos) {
    TakeType(parameter, property);
    if (parameter != "B") {  // short for base64 only where the encoding is named
      TakeEncoding(parameter, property);
    }
    return;
  }
  const std::string_view name = parameter.substr(0, equals);
  std::string_view value = WithoutQuotes(parameter.substr(equals + 1));
  if (IsSameWord(name, "CHARSET")) {
    property.charset = value;
  } else if (IsSameWord(name, "ENCODING")) {
    TakeEncoding(value, property);
  } else if (IsSameWord(name, "TYPE")) {
    while (!value.empty()) {
      TakeType(TakeUpTo(value, ','), property);
    }
  }
}

/// By the length first: most names are of no interest, and most of those that are are TEL.
VCardProperty::Kind KindOf(std::string_view name) {
  using Kind = VCardProperty::Kind;
  switch (name.size()) {
    case 0:
      return Kind::NONE;
    case 1:
      return IsSameWord(name, "N") ? Kind::NAME : Kind::OTHER;
    case 2:
      return IsSameWord(name, "FN") ? Kind::FULL_NAME : Kind::OTHER;
    case 3:
      if (IsSameWord(name, "TEL")) {
        return Kind::TELEPHONE;
      }
      return IsSameWord(name, "END") ? Kind::END : Kind::OTHER;
    case 5:
      if (IsSameWord(name, "BEGIN")) {
        return Kind::BEGIN;
      }
      return IsSameWord(name, "AGENT") ? Kind::AGENT : Kind::OTHER;
    default:
      return Kind::OTHER;
  }
}

/// Forgets what the property was before. Member by member: to copy a new one over it is a tenth of the time
/// that a book takes.
void Begin(VCardProperty& property, int line) {
  property.line = line;
  property.kind = VCardProperty::Kind::NONE;
  property.name = std::string_view();
  property.charset = std::string_view();
  property.encoding = VCardProperty::Encoding::NONE;
  property.isCell = false;
  property.isHome = false;
  property.isWork = false;
}

/// Takes name and parameters from the line.
void ParseHead(std::string_view line, const Head& head, VCardProperty& property) {
  const std::size_t end = std::min(head.colon, head.semicolon);
  property.name = line.substr(head.name, std::max(end, head.name) - head.name);
  property.kind = KindOf(property.name);
  if (head.semicolon >= head.colon) {
    return;
  }
  std::string_view parameters = line.substr(head.semicolon + 1, head.colon - head.semicolon - 1);
  while (!parameters.empty()) {
    TakeParameter(TakeUpTo(parameters, ';'), property);
  }
}

}  // namespace

VCardPropertyReader::VCardPropertyReader(std::string_view text) : m_text(text) {
  if (m_text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    m_text.remove_prefix(kByteOrderMark.size());
  }
}

bool VCardPropertyReader::Next(VCardProperty& property) {
  do {
    if (IsAtEnd()) {
      return false;
    }
    m_current = TakeLine();
  } while (IsBlankLine(m_current));
  Begin(property, m_line);
  Head head = FindHead(m_current);
  if (head.colon == std::string_view::npos && IsFolded()) {
    Unfold();
    head = FindHead(m_current);
  }
  if (head.colon == std::string_view::npos) {
    property.value = m_current;
    return true;
  }
  const char* const place = m_current.data();
  ParseHead(m_current, head, property);
  if (property.encoding == VCardProperty::Encoding::QUOTED_PRINTABLE) {
    JoinQuotedPrintable();
  } else {
    Unfold();
    if (property.encoding == VCardProperty::Encoding::BASE64) {
      JoinBase64();
    }
  }
  if (m_current.data() != place) {
    ParseHead(m_current, head, property);
  }
  property.value = m_current.substr(head.colon + 1);
  return true;
}

std::string_view VCardPropertyReader::PeekLine() const { return LineUpTo(m_text.find('\n', m_place)); }

/// The line that ends there, or at the end of the text, without what ends it.
std::string_view VCardPropertyReader::LineUpTo(std::size_t end) const {
  const std::string_view line = m_text.substr(m_place, std::min(end, m_text.size()) - m_place);
  return !line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line;
}

std::string_view VCardPropertyReader::TakeLine() {
  const std::size_t end = m_text.find('\n', m_place);
  const std::string_view line = LineUpTo(end);
  m_place = std::min(end, m_text.size()) + 1;
  ++m_line;
  return line;
}

bool VCardPropertyReader::IsFolded() const { return !IsAtEnd() && IsBlank(m_text[m_place]); }

void VCardPropertyReader::Unfold() {
  while (IsFolded()) {
    Join(TakeLine().substr(1));
  }
}

void VCardPropertyReader::JoinQuotedPrintable() {
  for (;;) {
    m_current = WithoutBlanksAtEnd(m_current);  // they were added on the way
    const bool isSoftBreak = !m_current.empty() && m_current.back() == '=';
    if (isSoftBreak) {
      m_current.remove_suffix(1);
      if (IsAtEnd() || IsEndOfCard(PeekLine())) {
        return;  // a break before nothing
      }
      Join(TakeLine());  // blanks at its begin belong to the text
    } else if (IsFolded()) {
      Join(TakeLine().substr(1));
    } else {
      return;
    }
  }
}

void VCardPropertyReader::JoinBase64() {
  while (!IsAtEnd() && IsBase64(PeekLine())) {
    Join(TakeLine());
    Unfold();
  }
}

void VCardPropertyReader::Join(std::string_view more) {
  if (m_current.data() == m_joined.data()) {
    m_joined.resize(m_current.size());
  } else {
    m_joined = m_current;
  }
  m_joined += more;
  m_current = m_joined;
}

}  // namespace btservice
