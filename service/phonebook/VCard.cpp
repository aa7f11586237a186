#include "service/phonebook/VCard.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "glib/Owned.h"
#include "service/files/Quote.h"
#include "service/phonebook/AsciiCase.h"
#include "service/phonebook/Charset.h"
#include "service/phonebook/Contacts.h"
#include "service/phonebook/VCardProperty.h"

namespace btservice {
namespace {

constexpr std::string_view kVCard = "VCARD";
constexpr std::size_t kUsualCard = 128;  // bytes
constexpr std::size_t kMostProblems = 20;

std::string DecodeQuotedPrintable(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isCoded = text[i] == '=' && i + 2 < text.size() && g_ascii_isxdigit(text[i + 1]) != FALSE &&
                         g_ascii_isxdigit(text[i + 2]) != FALSE;
    if (isCoded) {
      plain += static_cast<char>(g_ascii_xdigit_value(text[i + 1]) * 16 + g_ascii_xdigit_value(text[i + 2]));
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

std::string DecodeBase64(std::string_view text) {
  gsize size = 0;
  const OwnedMemory<guchar> bytes(g_base64_decode(std::string(text).c_str(), &size));
  return std::string(reinterpret_cast<const char*>(bytes.get()), size);
}

/// Looks at all of it, since most texts are, and a compiler makes that faster than to stop at the first
/// letter.
bool IsPrintableAscii(std::string_view text) {
  bool isAll = true;
  for (const char c : text) {
    isAll &= c >= ' ' && c <= '~';
  }
  return isAll;
}

/// Takes the part up to the separator off the text, and the backslashes out of the part.
std::string TakePart(std::string_view& rest, char separator) {
  const std::size_t end = std::min(rest.find(separator), rest.size());
  const std::string_view raw = rest.substr(0, end);
  if (raw.find('\\') == std::string_view::npos) {
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return std::string(raw);
  }
  std::string part;
  std::size_t i = 0;
  for (; i < rest.size() && rest[i] != separator; ++i) {
    const bool isEscaped = rest[i] == '\\' && i + 1 < rest.size();
    i += isEscaped ? 1 : 0;
    part += isEscaped && (rest[i] == 'n' || rest[i] == 'N') ? ' ' : rest[i];
  }
  rest.remove_prefix(i < rest.size() ? i + 1 : i);
  return part;
}

std::string Unescape(std::string_view text) {
  constexpr char kNoSeparator = '\0';  // there is no control character in the text
  return text.find('\\') == std::string_view::npos ? std::string(text) : TakePart(text, kNoSeparator);
}

NumberType TypeOf(const VCardProperty& telephone) {
  if (telephone.isCell) {
    return NUMBER_MOBILE;
  }
  if (telephone.isHome) {
    return NUMBER_HOME;
  }
  return telephone.isWork ? NUMBER_WORK : NUMBER_OTHER;
}

void AddTelephone(Contact& contact, const VCardProperty& telephone, std::string_view value) {
  constexpr std::string_view kScheme = "tel:";  // version 4 writes a number as a URI
  std::string number = Unescape(value);
  if (IsSameWord(std::string_view(number).substr(0, kScheme.size()), kScheme)) {
    number.erase(0, kScheme.size());
  }
  if (!number.empty()) {
    AddNumber(contact, TypeOf(telephone), std::move(number));
  }
}

/// The contact of one card, while its properties come in.
struct Card {
  Contact contact;
  std::string fullName;
  std::string problem;  ///< empty as long as all makes sense
};

class BookReader {
  using Kind = VCardProperty::Kind;

 public:
  BookReader(const std::string& text, const std::string& fileName) : m_fileName(fileName), m_reader(text) {
    m_cards.contacts.reserve(text.size() / kUsualCard);
    Advance();
  }

  VCards Read() {
    while (m_isThere) {
      if (IsBegin()) {
        ReadCard();
      } else {
        Skip(Problem(m_property.line, Expected("BEGIN:VCARD")));
        do {
          Advance();
        } while (m_isThere && !IsBegin());
      }
    }
    return std::move(m_cards);
  }

 private:
  void Advance() { m_isThere = m_reader.Next(m_property); }

  bool Is(VCardProperty::Kind kind) const { return m_property.kind == kind; }

  bool IsBegin() const {
    return Is(Kind::BEGIN) && IsSameWord(m_property.value.substr(0, kVCard.size()), kVCard);
  }

  /// Goes behind the END of the card that begins here; if it has none, to the next card.
  void ReadCard() {
    Card card;
    const int firstLine = m_property.line;
    int cardsInside = 0;  // old cards may hold the card of an agent, which is not read
    bool isAfterAgent = false;
    for (Advance(); m_isThere && (!IsBegin() || isAfterAgent); Advance()) {
      if (IsBegin()) {
        ++cardsInside;
      } else if (Is(Kind::END) && cardsInside > 0) {
        --cardsInside;
      } else if (Is(Kind::END)) {
        Advance();
        Finish(card);
        return;
      } else if (cardsInside == 0 && card.problem.empty()) {
        Take(card);
      }
      isAfterAgent = Is(Kind::AGENT) && m_property.value.empty();
    }
    Skip(!card.problem.empty()
             ? card.problem
             : Problem(m_isThere ? m_property.line : m_reader.Line(),
                       "the card begun in line " + std::to_string(firstLine) + " has no END:VCARD"));
  }

  /// Applies the property to the card.
  void Take(Card& card) {
    if (Is(Kind::NONE)) {
      card.problem = Problem(m_property.line, Expected("a property such as TEL:112"));
    } else if (Is(Kind::TELEPHONE) || Is(Kind::NAME) || Is(Kind::FULL_NAME)) {
      const std::optional<std::string_view> value = Decoded();
      if (!value) {
        const std::string charset = m_property.charset.empty() ? "UTF-8" : Quote(m_property.charset);
        card.problem =
            Problem(m_property.line, "expected a text in " + charset + ", got " + Quote(m_property.value));
      } else if (Is(Kind::NAME)) {
        std::string_view parts = *value;
        card.contact.familyName = TakePart(parts, ';');
        card.contact.firstName = TakePart(parts, ';');
      } else if (Is(Kind::FULL_NAME)) {
        card.fullName = Unescape(*value);
      } else {
        AddTelephone(card.contact, m_property, *value);
      }
    }
  }

  /// The value as it is meant; it holds until the next one is asked for.
  std::optional<std::string_view> Decoded() {
    switch (m_property.encoding) {
      case VCardProperty::Encoding::QUOTED_PRINTABLE:
        m_decoded = m_charset.ToUtf8(DecodeQuotedPrintable(m_property.value), m_property.charset);
        return m_decoded;
      case VCardProperty::Encoding::BASE64:
        m_decoded = m_charset.ToUtf8(DecodeBase64(m_property.value), m_property.charset);
        return m_decoded;
      case VCardProperty::Encoding::NONE:
        break;
    }
    if (m_property.charset.empty() && IsPrintableAscii(m_property.value)) {
      return m_property.value;  // most are, and a copy of each would be felt
    }
    m_decoded = m_charset.ToUtf8(m_property.value, m_property.charset);
    return m_decoded;
  }

  void Finish(Card& card) {
    if (!card.problem.empty()) {
      Skip(card.problem);
      return;
    }
    if (card.contact.firstName.empty() && card.contact.familyName.empty()) {
      card.contact.familyName = card.fullName;
    }
    card.contact.id = static_cast<int>(m_cards.contacts.size()) + 1;
    m_cards.contacts.push_back(std::move(card.contact));
  }

  std::string Expected(const std::string& what) const {
    return "expected " + what + ", got " +
           Quote(m_property.name.empty() ? m_property.value : m_property.name);
  }

  std::string Problem(int line, const std::string& what) const {
    return VisiblePath(m_fileName) + ":" + std::to_string(line) + ": " + what;
  }

  void Skip(const std::string& problem) {
    ++m_cards.skipped;
    if (m_cards.problems.size() < kMostProblems) {
      m_cards.problems.push_back(problem);
    }
  }

  const std::string& m_fileName;
  VCardPropertyReader m_reader;
  VCardProperty m_property;  ///< the one that is looked at
  bool m_isThere = false;    ///< false at the end of the text
  std::optional<std::string> m_decoded;
  Charset m_charset;
  VCards m_cards;
};

}  // namespace

VCards ParseVCards(const std::string& text, const std::string& fileName) {
  return BookReader(text, fileName).Read();
}

}  // namespace btservice
