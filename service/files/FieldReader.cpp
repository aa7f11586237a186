#include "service/files/FieldReader.h"

#include <algorithm>
#include <regex>

#include <glib.h>

#include "protocol/Address.h"
#include "service/files/Limits.h"
#include "service/files/Quote.h"

namespace btservice {

FieldReader::FieldReader(const JsonNode& node, const std::string& fileName, const std::string& place)
    : m_node(node), m_fileName(fileName), m_place(place) {
  if (node.kind != JsonNode::Kind::OBJECT) {
    Fail(node, place, "an object");
  }
}

std::string FieldReader::Place(const std::string& name) const {
  const bool isPlain = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return g_ascii_isalnum(c) != FALSE || c == '_' || c == '-';
  });
  const std::string shown = isPlain ? Visible(name) : Quote(name);
  return m_place.empty() ? shown : m_place + "." + shown;
}

void FieldReader::RefuseOthers() const {
  for (const auto& [name, node] : m_node.members) {
    if (m_taken.count(name) == 0) {
      std::string known;
      for (const std::string& one : m_taken) {
        known += (known.empty() ? "" : ", ") + one;
      }
      throw FileError(m_fileName, node.line,
                      Place(name) + ": there is no such member; expected one of " + known);
    }
  }
}

const JsonNode* FieldReader::Take(const char* name) {
  m_taken.insert(name);
  return m_node.Find(name);
}

const JsonNode& FieldReader::Expect(const char* name) {
  const JsonNode* const node = Take(name);
  if (node == nullptr) {
    throw FileError(m_fileName, m_node.line, Place(name) + ": is missing");
  }
  return *node;
}

void FieldReader::Fail(const JsonNode& node, const std::string& place, const std::string& expected) const {
  const std::string where = place.empty() ? "" : place + ": ";
  throw FileError(m_fileName, node.line, where + "expected " + expected + ", got " + Describe(node));
}

const std::string& FieldReader::TextOf(const JsonNode& node, const std::string& place,
                                       const std::string& expected) const {
  if (node.kind != JsonNode::Kind::TEXT) {
    Fail(node, place, expected);
  }
  return node.text;
}

void FieldReader::Read(const JsonNode& node, const std::string& place, std::string& value) {
  value = TextOf(node, place, "a text");
}

void FieldReader::Read(const JsonNode& node, const std::string& place, bool& value) {
  if (node.kind != JsonNode::Kind::TRUTH) {
    Fail(node, place, "true or false");
  }
  value = node.truth;
}

void FieldReader::Read(const JsonNode& node, const std::string& place, BoundedInt value) {
  if (node.kind != JsonNode::Kind::INTEGER || node.integer < value.least || node.integer > value.most) {
    Fail(node, place,
         "a whole number from " + std::to_string(value.least) + " to " + std::to_string(value.most));
  }
  value.value = static_cast<int>(node.integer);
}

void FieldReader::Read(const JsonNode& node, const std::string& place, Duration value) {
  int milliseconds = 0;
  Read(node, place, BoundedInt{milliseconds, 0, Duration::kMost});
  value.value = Milliseconds(milliseconds);
}

void FieldReader::Read(const JsonNode& node, const std::string& place, AddressText value) {
  const char* const expected = "a Bluetooth address such as 00:1A:7D:DA:71:13";
  if (!IsBluetoothAddress(TextOf(node, place, expected))) {
    Fail(node, place, expected);
  }
  value.value = node.text;
}

void FieldReader::Read(const JsonNode& node, const std::string& place, PatternText value) {
  // The matcher calls itself for each character.
  if (TextOf(node, place, value.meaning).size() > kLongestPattern ||
      !std::regex_match(node.text, std::regex(value.pattern))) {
    Fail(node, place, value.meaning);
  }
  value.value = node.text;
}

void FieldReader::Read(const JsonNode& node, const std::string& place,
                       std::map<std::string, std::string>& value) {
  if (node.kind != JsonNode::Kind::OBJECT) {
    Fail(node, place, "an object of texts");
  }
  value.clear();
  for (const auto& [name, member] : node.members) {
    Read(member, (place + ".").append(Visible(name)), value[name]);
  }
}

}  // namespace btservice
