// The JSON Schema of world files, made from the same description that they are read by.

#include <nlohmann/json.hpp>

#include "protocol/Address.h"
#include "service/simulation/world/WorldFields.h"
#include "service/simulation/world/WorldFile.h"

namespace btservice {
namespace {

using Json = nlohmann::ordered_json;

/// Makes the schema of one struct, and notes those of the structs in it.
class SchemaWriter {
 public:
  explicit SchemaWriter(Json& definitions) : m_definitions(definitions) {}

  template <typename Value>
  void Required(const char* name, Value&& value, const char* meaning) {
    m_required.push_back(name);
    Field(name, Schema(value), meaning);
  }
  template <typename Value>
  void Optional(const char* name, Value&& value, const char* meaning) {
    Json schema = Schema(value);
    const Json usual = Default(value);
    if (!usual.is_null()) {
      schema["default"] = usual;
    }
    Field(name, schema, meaning);
  }

  Json Finish() const {
    Json object{{"type", "object"}, {"properties", m_properties}};
    if (!m_required.empty()) {
      object["required"] = m_required;
    }
    object["additionalProperties"] = false;
    return object;
  }

 private:
  void Field(const char* name, const Json& schema, const char* meaning) {
    m_properties[name] = {{"description", meaning}};
    m_properties[name].update(schema);
  }

  Json Schema(const std::string&) { return {{"type", "string"}}; }
  Json Schema(bool) { return {{"type", "boolean"}}; }
  Json Schema(const BoundedInt& bounded) {
    return {{"type", "integer"}, {"minimum", bounded.least}, {"maximum", bounded.most}};
  }
  Json Schema(const Duration&) { return {{"type", "integer"}, {"minimum", 0}, {"maximum", Duration::kMost}}; }
  Json Schema(const AddressText&) { return {{"type", "string"}, {"pattern", kBluetoothAddressPattern}}; }
  Json Schema(const PatternText& text) {
    return {{"type", "string"}, {"pattern", std::string("^") + text.pattern + "$"}};
  }
  Json Schema(const std::map<std::string, std::string>&) {
    return {{"type", "object"}, {"additionalProperties", {{"type", "string"}}}};
  }
  template <typename Value>
  Json Schema(const std::vector<Value>&) {
    return {{"type", "array"}, {"items", Schema(Value())}};
  }
  template <typename Value>
  Json Schema(const std::set<Value>&) {
    return {{"type", "array"}, {"items", Schema(Value())}};
  }
  template <typename Value>
  Json Schema(const Value&) {
    if constexpr (std::is_enum_v<Value>) {
      Json words = Json::array();
      for (const auto& [word, value] : WordsOf<Value>()) {
        words.push_back(word);
      }
      return {{"enum", words}};
    } else {
      const char* const name = SchemaName(static_cast<const Value*>(nullptr));
      if (!m_definitions.contains(name)) {
        m_definitions[name] = Json::object();  // a struct may hold others of its kind
        SchemaWriter writer(m_definitions);
        Value value;
        DescribeFields(writer, value);
        m_definitions[name] = writer.Finish();
      }
      return {{"$ref", std::string("#/$defs/") + name}};
    }
  }

  Json Default(const std::string& value) { return value.empty() ? Json() : Json(value); }
  Json Default(bool value) { return value; }
  Json Default(const BoundedInt& bounded) { return bounded.value; }
  Json Default(const Duration& duration) { return duration.value.count(); }
  Json Default(const AddressText& text) { return Default(text.value); }
  Json Default(const PatternText& text) { return Default(text.value); }
  template <typename Value>
  Json Default(const Value& value) {
    if constexpr (std::is_enum_v<Value>) {
      return WordOf(value);
    } else {
      return {};
    }
  }

  Json& m_definitions;
  Json m_properties = Json::object();
  std::vector<std::string> m_required;
};

}  // namespace

std::string WorldSchema() {
  Json definitions = Json::object();
  SchemaWriter writer(definitions);
  WorldSource source;
  DescribeFields(writer, source);
  Json schema{{"$schema", "https://json-schema.org/draft/2020-12/schema"},
              {"title", "A world of the simulated Bluetooth service"}};
  schema.update(writer.Finish());
  schema["$defs"] = definitions;
  return schema.dump(2) + "\n";
}

}  // namespace btservice
