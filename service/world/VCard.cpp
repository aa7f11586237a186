#include "service/world/VCard.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "service/model/Contacts.h"
#include "service/world/JsonNode.h"

namespace btservice {
namespace {

struct Property {
  int line = 1;
  std::string name;                     ///< upper case, without its group
  std::vector<std::string> parameters;  ///< upper case: "TYPE=CELL,VOICE" or "CELL"
  std::string value;
};

std::string UpperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
  return text;
}

bool HasParameter(const Property& property, const std::string& wanted) {
  return std::any_of(
      property.parameters.begin(), property.parameters.end(),
      [&](const std::string& parameter) { return parameter.find(wanted) != std::string::npos; });
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      parts.back() += text[i];
      parts.back() += text[++i];
    } else if (text[i] == separator) {
      parts.emplace_back();
    } else {
      parts.back() += text[i];
    }
  }
  return parts;
}

/// Takes the backslashes out.
std::string Unescape(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      ++i;
      plain += text[i] == 'n' || text[i] == 'N' ? ' ' : text[i];
    } else {
      plain += text[i];
    }
  }
  return plain;
}

std::string DecodeQuotedPrintable(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isCoded = text[i] == '=' && i + 2 < text.size() && std::isxdigit(text[i + 1] & 0xFF) != 0 &&
                         std::isxdigit(text[i + 2] & 0xFF) != 0;
    if (isCoded) {
      plain += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

/// The properties of the text, one for each logical line.
class PropertyReader {
 public:
  PropertyReader(const std::string& text, const std::string& fileName) : m_text(text), m_fileName(fileName) {}

  std::optional<Property> Next() {
    std::string line;
    do {
      if (m_place >= m_text.size()) {
        return std::nullopt;
      }
      line = PhysicalLine();
    } while (line.find_first_not_of(" \t") == std::string::npos);
    Property property;
    property.line = m_line;
    while (m_place < m_text.size() && (m_text[m_place] == ' ' || m_text[m_place] == '\t')) {
      line += PhysicalLine().substr(1);  // folded
    }
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos) {
      throw FileError(m_fileName, property.line, "expected a property such as TEL:112, got '" + line + "'");
    }
    property.parameters = Split(UpperCase(line.substr(0, colon)), ';');
    property.name = property.parameters.front();
    property.parameters.erase(property.parameters.begin());
    property.name.erase(0, property.name.find('.') + 1);
    property.value = line.substr(colon + 1);
    if (HasParameter(property, "QUOTED-PRINTABLE")) {
      while (!property.value.empty() && property.value.back() == '=' && m_place < m_text.size()) {
        property.value.pop_back();
        property.value += PhysicalLine();
      }
      property.value = DecodeQuotedPrintable(property.value);
    }
    return property;
  }
  int Line() const { return m_line; }

 private:
  std::string PhysicalLine() {
    const std::size_t end = std::min(m_text.find('\n', m_place), m_text.size());
    std::string line = m_text.substr(m_place, end - m_place);
    m_place = end + 1;
    ++m_line;
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    return line;
  }

  const std::string& m_text;
  const std::string& m_fileName;
  std::size_t m_place = 0;
  int m_line = 0;
};

NumberType TypeOf(const Property& telephone) {
  if (HasParameter(telephone, "CELL")) {
    return NUMBER_MOBILE;
  }
  if (HasParameter(telephone, "HOME")) {
    return NUMBER_HOME;
  }
  return HasParameter(telephone, "WORK") ? NUMBER_WORK : NUMBER_OTHER;
}

void AddTelephone(Contact& contact, const Property& telephone) {
  std::string number = Unescape(telephone.value);
  if (UpperCase(number).rfind("TEL:", 0) == 0) {
    number.erase(0, 4);  // version 4 writes it as a URI
  }
  if (!number.empty()) {
    AddNumber(contact, TypeOf(telephone), number);
  }
}

void Apply(Contact& contact, std::string& fullName, const Property& property) {
  if (property.name == "N") {
    const std::vector<std::string> parts = Split(property.value, ';');
    contact.familyName = Unescape(parts[0]);
    contact.firstName = parts.size() > 1 ? Unescape(parts[1]) : "";
  } else if (property.name == "FN") {
    fullName = Unescape(property.value);
  } else if (property.name == "TEL") {
    AddTelephone(contact, property);
  }
}

}  // namespace

std::vector<Contact> ParseVCards(const std::string& text, const std::string& fileName) {
  std::vector<Contact> contacts;
  PropertyReader reader(text, fileName);
  while (const std::optional<Property> begin = reader.Next()) {
    if (begin->name != "BEGIN" || UpperCase(begin->value) != "VCARD") {
      throw FileError(fileName, begin->line, "expected BEGIN:VCARD, got '" + begin->name + "'");
    }
    Contact contact;
    contact.id = static_cast<int>(contacts.size()) + 1;
    std::string fullName;
    std::optional<Property> property = reader.Next();
    for (; property && property->name != "END"; property = reader.Next()) {
      Apply(contact, fullName, *property);
    }
    if (!property) {
      throw FileError(fileName, reader.Line(),
                      "the card begun in line " + std::to_string(begin->line) + " has no END:VCARD");
    }
    if (contact.firstName.empty() && contact.familyName.empty()) {
      contact.familyName = fullName;
    }
    contacts.push_back(contact);
  }
  return contacts;
}

}  // namespace btservice
