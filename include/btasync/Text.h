#ifndef BTASYNC_TEXT_H
#define BTASYNC_TEXT_H

#include <cstddef>
#include <cstring>
#include <string>
#include <utility>

#include <btasync/Export.h>

namespace btasync {
inline namespace v0 {

/// A text that is passed to a request: UTF-8 without a NUL inside. Views what it is made of, which has to
/// live until the function that takes it returns. A request with any other text fails with InvalidArgument.
class Text {
 public:
  Text(const std::string& text) : m_begin(text.data()), m_size(text.size()) {}
  Text(const char* text) : m_begin(text), m_size(text != nullptr ? std::strlen(text) : 0) {}

  /// Null if it was made of a null pointer; ends with a NUL else.
  const char* Begin() const { return m_begin; }
  std::size_t Size() const { return m_size; }

 private:
  const char* m_begin;
  std::size_t m_size;
};

/// The Bluetooth address of a device. A type of its own, so that an address and another text cannot be
/// exchanged. Any text may be one: a request with an address that is not valid fails with InvalidArgument.
class Address {
 public:
  Address() = default;
  explicit Address(std::string text) : m_text(std::move(text)) {}

  /// As it came: 00:1A:7D:DA:71:13.
  const std::string& ToText() const { return m_text; }
  /// Six pairs of hexadecimal digits, of either case, separated by ':'.
  BTASYNC_API bool IsValid() const;
  bool IsEmpty() const { return m_text.empty(); }

  /// The same device: the case of the digits does not count.
  BTASYNC_API friend bool operator==(const Address& one, const Address& other);
  friend bool operator!=(const Address& one, const Address& other) { return !(one == other); }

 private:
  std::string m_text;
};

/// A PIN, or the digits that a person has typed: decimal digits, 16 at most, or empty. A type of its own, for
/// the same reason as Address.
class PinCode {
 public:
  PinCode() = default;
  explicit PinCode(std::string digits) : m_digits(std::move(digits)) {}

  const std::string& ToText() const { return m_digits; }

 private:
  std::string m_digits;
};

}  // namespace v0
}  // namespace btasync

#endif
