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
  /// @param text is viewed, not copied
  Text(const std::string& text) : m_begin(text.data()), m_size(text.size()) {}
  /// @param text ends with a NUL and is viewed, not copied; null is no text, and no request takes it
  Text(const char* text) : m_begin(text), m_size(text != nullptr ? std::strlen(text) : 0) {}

  /// The first byte.
  /// @returns null if it was made of a null pointer; else what ends with a NUL
  const char* Begin() const { return m_begin; }
  /// @returns the number of bytes, without the NUL
  std::size_t Size() const { return m_size; }

 private:
  const char* m_begin;
  std::size_t m_size;
};

/// The Bluetooth address of a device. A type of its own, so that an address and another text cannot be
/// exchanged. Any text may be one: a request with an address that is not valid fails with InvalidArgument.
class Address {
 public:
  /// Empty: no device.
  Address() = default;
  /// @param text such as 00:1A:7D:DA:71:13; not checked here
  explicit Address(std::string text) : m_text(std::move(text)) {}

  /// As it came.
  /// @returns a text such as 00:1A:7D:DA:71:13, which belongs to the address
  const std::string& ToText() const { return m_text; }
  /// Whether a request takes it.
  /// @returns true for six pairs of hexadecimal digits, of either case, separated by ':'
  BTASYNC_API bool IsValid() const;
  /// @returns true for no text at all, as in an address that was never set
  bool IsEmpty() const { return m_text.empty(); }

  /// The same device: the case of the digits does not count.
  /// @param one an address
  /// @param other another
  /// @returns true for the same device
  BTASYNC_API friend bool operator==(const Address& one, const Address& other);
  /// Another device: the case of the digits does not count.
  /// @param one an address
  /// @param other another
  /// @returns true for another device
  friend bool operator!=(const Address& one, const Address& other) { return !(one == other); }

 private:
  std::string m_text;
};

/// A PIN, or the digits that a person has typed: decimal digits, 16 at most, or empty. A type of its own, for
/// the same reason as Address.
class PinCode {
 public:
  /// Empty: no PIN.
  PinCode() = default;
  /// @param digits are checked by the request that takes them, which else fails with InvalidArgument
  explicit PinCode(std::string digits) : m_digits(std::move(digits)) {}

  /// @returns the digits as they came, which belong to the PIN
  const std::string& ToText() const { return m_digits; }

 private:
  std::string m_digits;
};

}  // namespace v0
}  // namespace btasync

#endif
