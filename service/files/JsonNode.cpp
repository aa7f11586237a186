#include "service/files/JsonNode.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <string_view>

#include <nlohmann/json.hpp>

#include "service/files/Limits.h"
#include "service/files/Quote.h"

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
      return number_float(0, std::to_string(value));
    }
    return number_integer(static_cast<number_integer_t>(value));
  }
  bool number_float(number_float_t, const string_t& written) override {
    Add(JsonNode::Kind::FRACTION)->text = written;
    return true;
  }
  bool string(string_t& value) override {
    RefuseLong(value);
    Add(JsonNode::Kind::TEXT)->text = std::move(value);
    return true;
  }
  bool binary(binary_t&) override { return false; }
  bool start_object(std::size_t) override { return Enter(JsonNode::Kind::OBJECT); }
  bool key(string_t& value) override {
    RefuseLong(value);
    if (!m_open.back().names.insert(value).second) {
      throw Error(Quote(value) + " is there twice");
    }
    m_key = std::move(value);
    return true;
  }
  bool end_object() override { return Leave(); }
  bool start_array(std::size_t) override { return Enter(JsonNode::Kind::LIST); }
  bool end_array() override { return Leave(); }
  bool parse_error(std::size_t, const std::string& token, const nlohmann::detail::exception& error) override {
    constexpr int kNumberTooLarge = 406;
    if (error.id == kNumberTooLarge) {
      throw Error("the number " + Visible(token) + " is too large");
    }
    // What the parser expected is known from its text alone; only this much of it matters to a reader.
    const bool isAtEnd =
        std::string_view(error.what()).find("unexpected end of input") != std::string_view::npos;
    throw Error(isAtEnd ? "the text ends too early" : "this is not JSON: " + Quote(EndOf(token)));
  }

 private:
  /// A list or an object that has not ended yet.
  struct Open {
    JsonNode* node;  ///< nothing is added beside the last one, so that it stays where it is
    std::set<std::string> names;
  };

  /// The parser hands over all that it has read since the last value; the fault is at its end.
  static std::string_view EndOf(std::string_view token) {
    constexpr std::size_t kLongest = 40;
    token.remove_prefix(token.size() > kLongest ? token.size() - kLongest : 0);
    const auto isBlankOrInsideACharacter = [](char c) {
      return std::isspace(static_cast<unsigned char>(c)) != 0 ||
             (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    };
    while (token.size() > 1 && isBlankOrInsideACharacter(token.front())) {
      token.remove_prefix(1);
    }
    return token;
  }

  FileError Error(const std::string& what) const { return FileError(m_fileName, m_lines.lastSolid, what); }

  void RefuseLong(const std::string& text) const {
    if (text.size() > kLongestText) {
      throw Error("expected a text of at most " + std::to_string(kLongestText >> 10) + " KiB, got " +
                  std::to_string(text.size()) + " bytes that begin with " + Quote(text));
    }
  }

  JsonNode* Add(JsonNode::Kind kind) {
    if (++m_values > kMostValues) {
      throw Error("expected at most " + std::to_string(kMostValues) + " values");
    }
    JsonNode* node = &m_root;
    if (!m_open.empty()) {
      JsonNode& parent = *m_open.back().node;
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
    if (m_open.size() == kDeepestNesting) {
      throw Error("expected at most " + std::to_string(kDeepestNesting) +
                  " lists and objects within each other");
    }
    m_open.push_back({Add(kind), {}});
    return true;
  }
  bool Leave() {
    m_open.pop_back();
    return true;
  }

  const std::string& m_fileName;
  const CountingIterator::Lines& m_lines;
  JsonNode m_root;
  std::vector<Open> m_open;
  std::size_t m_values = 0;
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
      return Visible(node.text);
    case JsonNode::Kind::TEXT:
      return Quote(node.text);
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

}  // namespace btservice
