#include "service/world/JsonNode.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>

#include <nlohmann/json.hpp>

namespace btservice {
namespace {

/// Walks through the text for the parser and notes the line of the last character that was more than a blank:
/// the parser looks one character beyond a number, which may be the end of its line.
class CountingIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  struct Lines {
    int current = 1;
    int lastSolid = 1;
  };

  CountingIterator(const char* place, Lines* lines) : m_place(place), m_lines(lines) {}

  reference operator*() const { return *m_place; }
  CountingIterator& operator++() {
    if (std::isspace(static_cast<unsigned char>(*m_place)) == 0) {
      m_lines->lastSolid = m_lines->current;
    } else if (*m_place == '\n') {
      ++m_lines->current;
    }
    ++m_place;
    return *this;
  }
  CountingIterator operator++(int) {
    const CountingIterator before = *this;
    ++*this;
    return before;
  }
  bool operator==(const CountingIterator& other) const { return m_place == other.m_place; }
  bool operator!=(const CountingIterator& other) const { return m_place != other.m_place; }

 private:
  const char* m_place;
  Lines* m_lines;
};

/// Builds the nodes from what the parser meets.
class NodeBuilder : public nlohmann::json_sax<nlohmann::json> {
 public:
  NodeBuilder(const std::string& fileName, const CountingIterator::Lines& lines)
      : m_fileName(fileName), m_lines(lines) {}

  JsonNode TakeRoot() { return std::move(m_root); }

  bool null() override { return Add(JsonNode::Kind::NOTHING) != nullptr; }
  bool boolean(bool value) override {
    Add(JsonNode::Kind::TRUTH)->truth = value;
    return true;
  }
  bool number_integer(number_integer_t value) override {
    Add(JsonNode::Kind::INTEGER)->integer = value;
    return true;
  }
  bool number_unsigned(number_unsigned_t value) override {
    if (value > static_cast<number_unsigned_t>(INT64_MAX)) {
      return number_float(static_cast<double>(value), {});
    }
    return number_integer(static_cast<number_integer_t>(value));
  }
  bool number_float(number_float_t value, const string_t&) override {
    Add(JsonNode::Kind::FRACTION)->fraction = value;
    return true;
  }
  bool string(string_t& value) override {
    Add(JsonNode::Kind::TEXT)->text = std::move(value);
    return true;
  }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return Enter(JsonNode::Kind::OBJECT); }
  bool key(string_t& value) override {
    if (m_open.back()->Find(value) != nullptr) {
      throw FileError(m_fileName, m_lines.lastSolid, "'" + value + "' is there twice");
    }
    m_key = std::move(value);
    return true;
  }
  bool end_object() override { return Leave(); }
  bool start_array(std::size_t) override { return Enter(JsonNode::Kind::LIST); }
  bool end_array() override { return Leave(); }
  bool parse_error(std::size_t, const std::string& token, const nlohmann::detail::exception& error) override {
    // The parser's own text is "[json.exception...] parse error at line 3, column 5: what is wrong".
    const std::string text = error.what();
    const std::size_t colon = text.find(": ");
    throw FileError(m_fileName, m_lines.lastSolid,
                    (colon != std::string::npos ? text.substr(colon + 2) : text) +
                        (token.empty() ? " (the file ends too early)" : ""));
  }

 private:
  JsonNode* Add(JsonNode::Kind kind) {
    JsonNode* node = &m_root;
    if (!m_open.empty()) {
      JsonNode& parent = *m_open.back();
      if (parent.kind == JsonNode::Kind::LIST) {
        node = &parent.items.emplace_back();
      } else {
        node = &parent.members.emplace_back(m_key, JsonNode()).second;
      }
    }
    node->kind = kind;
    node->line = m_lines.lastSolid;
    return node;
  }
  bool Enter(JsonNode::Kind kind) {
    m_open.push_back(Add(kind));
    return true;
  }
  bool Leave() {
    m_open.pop_back();
    return true;
  }

  const std::string& m_fileName;
  const CountingIterator::Lines& m_lines;
  JsonNode m_root;
  std::vector<JsonNode*> m_open;  ///< lists and objects not yet ended; nothing is added beside the last one
  std::string m_key;
};

}  // namespace

const JsonNode* JsonNode::Find(const std::string& name) const {
  const auto place =
      std::find_if(members.begin(), members.end(), [&](const auto& member) { return member.first == name; });
  return place != members.end() ? &place->second : nullptr;
}

std::string Describe(const JsonNode& node) {
  switch (node.kind) {
    case JsonNode::Kind::NOTHING:
      return "null";
    case JsonNode::Kind::TRUTH:
      return node.truth ? "true" : "false";
    case JsonNode::Kind::INTEGER:
      return std::to_string(node.integer);
    case JsonNode::Kind::FRACTION:
      return "a number with a fraction";
    case JsonNode::Kind::TEXT:
      return "'" + node.text + "'";
    case JsonNode::Kind::LIST:
      return "a list";
    case JsonNode::Kind::OBJECT:
      return "an object";
  }
  return "";
}

JsonNode ParseJson(const std::string& text, const std::string& fileName) {
  CountingIterator::Lines lines;
  NodeBuilder builder(fileName, lines);
  nlohmann::json::sax_parse(CountingIterator(text.data(), &lines),
                            CountingIterator(text.data() + text.size(), &lines), &builder,
                            nlohmann::json::input_format_t::json, true, true);
  return builder.TakeRoot();
}

std::string ReadFile(const std::string& fileName) {
  const auto refuse = [&fileName]() -> std::runtime_error {
    return std::runtime_error(fileName + ": cannot be read: " + std::strerror(errno));
  };
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(fileName.c_str(), "rb"), std::fclose);
  if (file == nullptr) {
    throw refuse();
  }
  std::string contents;
  std::array<char, 65536> part{};
  while (const std::size_t size = std::fread(part.data(), 1, part.size(), file.get())) {
    contents.append(part.data(), size);
  }
  if (std::ferror(file.get()) != 0) {
    throw refuse();  // a directory can be opened, but not be read
  }
  return contents;
}

}  // namespace btservice
