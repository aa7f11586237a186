#include "libbtasync/Wire.h"

#include <cstring>

#include "glib/Owned.h"
#include "protocol/Address.h"

namespace btasync::wire {
namespace {

constexpr std::size_t kLongest = std::size_t{64} << 20;  // bytes; a message has to be below 128 MiB
constexpr std::size_t kLongestPinCode = 16;              // digits, as Bluetooth has it
constexpr char kTooLarge[] = "an argument is larger than 64 MiB";

GVariant* NewText(const std::string& text) { return g_variant_new_string(text.c_str()); }

OwnedVariant Child(GVariant* values, std::size_t place) {
  return OwnedVariant(g_variant_get_child_value(values, place));
}

}  // namespace

const char* WhyNot(const Text& text) {
  if (text.Begin() == nullptr) {
    return "a text is null";
  }
  if (text.Size() > kLongest) {
    return kTooLarge;
  }
  if (std::memchr(text.Begin(), '\0', text.Size()) != nullptr) {
    return "a text has a NUL inside";
  }
  return g_utf8_validate(text.Begin(), static_cast<gssize>(text.Size()), nullptr) ? nullptr
                                                                                  : "a text is not UTF-8";
}

const char* WhyNot(const Address& address) {
  return address.IsValid() ? nullptr : "an address is not six pairs of hexadecimal digits separated by ':'";
}

const char* WhyNot(const PinCode& pinCode) {
  const std::string& digits = pinCode.ToText();
  return digits.size() <= kLongestPinCode && digits.find_first_not_of("0123456789") == std::string::npos
             ? nullptr
             : "a PIN is not 16 decimal digits at most";
}

const char* WhyNot(const Bytes& bytes) { return bytes.size() <= kLongest ? nullptr : kTooLarge; }

const char* WhyNot(const MWPTypePlayMode& mode) {
  const auto isByte = [](int value) { return value >= 0 && value <= 255; };
  return isByte(mode.nType) && isByte(mode.nValue) ? nullptr : "a play mode is not two bytes";
}

GVariant* ToVariant(const Text& text) { return g_variant_new_string(text.Begin()); }
GVariant* ToVariant(const Address& address) { return NewText(address.ToText()); }
GVariant* ToVariant(const PinCode& pinCode) { return NewText(pinCode.ToText()); }

GVariant* ToVariant(const Bytes& bytes) {
  return g_variant_new_variant(g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1));
}

GVariant* ToVariant(const MWPTypePlayMode& mode) {
  return g_variant_new("(yy)", static_cast<guchar>(mode.nType), static_cast<guchar>(mode.nValue));
}

std::string TextAt(GVariant* values, std::size_t place) {
  const OwnedVariant child = Child(values, place);
  gsize length = 0;
  const char* const text = g_variant_get_string(child.get(), &length);
  return std::string(text, length);
}

bool HoldsBytes(GVariant* values, std::size_t place) {
  const OwnedVariant boxed = Child(values, place);
  return g_variant_is_of_type(Child(boxed.get(), 0).get(), G_VARIANT_TYPE_BYTESTRING) != FALSE;
}

Bytes BytesAt(GVariant* values, std::size_t place) {
  const OwnedVariant boxed = Child(values, place);
  const OwnedVariant bytes = Child(boxed.get(), 0);
  gsize size = 0;
  const auto* const data =
      static_cast<const unsigned char*>(g_variant_get_fixed_array(bytes.get(), &size, 1));
  return Bytes(data, data + size);
}

std::vector<MWPTypePlayMode> PlayModesAt(GVariant* values, std::size_t place) {
  const OwnedVariant array = Child(values, place);
  std::vector<MWPTypePlayMode> modes(g_variant_n_children(array.get()));
  for (std::size_t i = 0; i < modes.size(); ++i) {
    guchar type = 0;
    guchar value = 0;
    g_variant_get_child(array.get(), i, "(yy)", &type, &value);
    modes[i] = {type, value};
  }
  return modes;
}

int ByteAt(GVariant* values, std::size_t place) { return g_variant_get_byte(Child(values, place).get()); }
bool BooleanAt(GVariant* values, std::size_t place) {
  return g_variant_get_boolean(Child(values, place).get()) != FALSE;
}
int IntegerAt(GVariant* values, std::size_t place) { return g_variant_get_int32(Child(values, place).get()); }
unsigned UnsignedAt(GVariant* values, std::size_t place) {
  return g_variant_get_uint32(Child(values, place).get());
}

Failure BadTypes(const char* method) {
  return {Reason::Malformed, std::string(method) + ": the answer's types are not those of the interface"};
}

}  // namespace btasync::wire
