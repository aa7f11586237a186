#ifndef SERVICE_FILES_FIELDREADER_H
#define SERVICE_FILES_FIELDREADER_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "service/files/FieldTypes.h"
#include "service/files/JsonNode.h"
#include "service/files/WordList.h"

namespace btservice {

/// Fills a described struct from an object of a JSON text. What does not fit, a member that nobody asks for
/// included, is a FileError that says where, and what was expected.
class FieldReader {
 public:
  /// place is the way to the node in words: "devices[2].phone".
  FieldReader(const JsonNode& node, const std::string& fileName, const std::string& place);

  // How a description (DescribeFields) asks for the members of the object. value is where a member goes: a
  // variable, or one of FieldTypes.h with its rules. meaning is for the schema; here it is of no use.

  /// Fails if the member is missing.
  template <typename Value>
  void Required(const char* name, Value&& value, const char* /*meaning*/) {
    Read(Expect(name), Place(name), value);
  }
  /// Leaves value as it is if the member is missing.
  template <typename Value>
  void Optional(const char* name, Value&& value, const char* /*meaning*/) {
    if (const JsonNode* const node = Take(name)) {
      Read(*node, Place(name), value);
    }
  }
  /// Fails if the object has members that nobody asked for. Call it after the last field.
  void RefuseOthers() const;

 private:
  const JsonNode* Take(const char* name);
  const JsonNode& Expect(const char* name);
  std::string Place(const std::string& name) const;
  [[noreturn]] void Fail(const JsonNode& node, const std::string& place, const std::string& expected) const;
  const std::string& TextOf(const JsonNode& node, const std::string& place,
                            const std::string& expected) const;

  void Read(const JsonNode& node, const std::string& place, std::string& value);
  void Read(const JsonNode& node, const std::string& place, bool& value);
  void Read(const JsonNode& node, const std::string& place, BoundedInt value);
  void Read(const JsonNode& node, const std::string& place, Duration value);
  void Read(const JsonNode& node, const std::string& place, AddressText value);
  void Read(const JsonNode& node, const std::string& place, PatternText value);
  void Read(const JsonNode& node, const std::string& place, std::map<std::string, std::string>& value);

  template <typename Value>
  void Read(const JsonNode& node, const std::string& place, std::vector<Value>& values) {
    if (node.kind != JsonNode::Kind::LIST) {
      Fail(node, place, "a list");
    }
    values.clear();
    for (const JsonNode& item : node.items) {
      const std::string itemPlace = place + "[" + std::to_string(values.size()) + "]";
      Read(item, itemPlace, values.emplace_back());
    }
  }
  template <typename Value>
  void Read(const JsonNode& node, const std::string& place, std::set<Value>& values) {
    std::vector<Value> list;
    Read(node, place, list);
    values = std::set<Value>(list.begin(), list.end());
  }
  /// An enumeration by its word, any other struct by its description.
  template <typename Value>
  void Read(const JsonNode& node, const std::string& place, Value& value) {
    if constexpr (std::is_enum_v<Value>) {
      const std::string expected = "one of " + Choices<Value>();
      const Value* const found = FindWord<Value>(TextOf(node, place, expected));
      if (found == nullptr) {
        Fail(node, place, expected);
      }
      value = *found;
    } else {
      FieldReader reader(node, m_fileName, place);
      DescribeFields(reader, value);
      reader.RefuseOthers();
    }
  }

  const JsonNode& m_node;
  const std::string& m_fileName;
  std::string m_place;
  std::set<std::string> m_taken;
};

}  // namespace btservice

#endif
