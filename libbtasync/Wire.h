#ifndef LIBBTASYNC_WIRE_H
#define LIBBTASYNC_WIRE_H

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <glib.h>

#include <btasync/Records.h>
#include <btasync/Request.h>
#include <btasync/Text.h>

#include "WireNames.h"

// From C++ to the values of the bus and back. What a function here is given is checked against the interface
// description (WireNames.h) when it is compiled.

namespace btasync::wire {

// ----- To the bus

/// Why an argument cannot travel, or null.
const char* WhyNot(const Text& text);
const char* WhyNot(const Address& address);
const char* WhyNot(const PinCode& pinCode);
const char* WhyNot(const Bytes& bytes);
const char* WhyNot(const MWPTypePlayMode& mode);
template <typename Number>
constexpr std::enable_if_t<std::is_enum_v<Number> || std::is_integral_v<Number>, const char*> WhyNot(
    Number number) {
  if constexpr (std::is_enum_v<Number>) {
    // It travels in a byte. One that the header does not list may be one of a newer service.
    const auto value = static_cast<long long>(number);
    return value >= 0 && value <= 255 ? nullptr : "an enumerator is not one byte";
  } else {
    return nullptr;
  }
}

GVariant* ToVariant(const Text& text);
GVariant* ToVariant(const Address& address);
GVariant* ToVariant(const PinCode& pinCode);
GVariant* ToVariant(const Bytes& bytes);
GVariant* ToVariant(const MWPTypePlayMode& mode);

template <typename Value>
inline constexpr bool kIsText =
    std::is_same_v<Value, Text> || std::is_same_v<Value, Address> || std::is_same_v<Value, PinCode>;

/// The argument at a place of a method.
template <typename Method, std::size_t place, typename Value>
GVariant* Argument(const Value& value) {
  constexpr std::string_view type = Method::in[place];
  if constexpr (type == "s") {
    static_assert(kIsText<Value>, "the interface has a text here");
    return ToVariant(value);
  } else if constexpr (type == "v") {
    static_assert(std::is_same_v<Value, Bytes>, "the interface has bytes here");
    return ToVariant(value);
  } else if constexpr (type == "(yy)") {
    static_assert(std::is_same_v<Value, MWPTypePlayMode>, "the interface has a play mode here");
    return ToVariant(value);
  } else {
    static_assert(std::is_enum_v<Value> || std::is_integral_v<Value>, "the interface has a number here");
    if constexpr (type == "y") {
      return g_variant_new_byte(static_cast<guchar>(value));
    } else if constexpr (type == "b") {
      static_assert(std::is_same_v<Value, bool>, "the interface has yes or no here");
      return g_variant_new_boolean(value);
    } else {
      static_assert(type == "i", "a type that no method had so far");
      return g_variant_new_int32(static_cast<gint32>(value));
    }
  }
}

template <typename Method, std::size_t... places, typename... Values>
GVariant* Arguments(std::index_sequence<places...>, const Values&... values) {
  static_assert(sizeof...(Values) == Method::in.size(), "the interface has another number of arguments");
  if constexpr (sizeof...(Values) == 0) {
    return nullptr;
  } else {
    GVariant* const items[] = {Argument<Method, places>(values)...};
    return g_variant_new_tuple(items, sizeof...(Values));
  }
}

/// A call with its arguments, or with the reason why they cannot travel.
template <typename Method, typename... Values>
detail::Outgoing Prepare(detail::Backend& backend, const Values&... values) {
  const char* invalid = nullptr;
  ((invalid = invalid != nullptr ? invalid : WhyNot(values)), ...);
  GVariant* const arguments =
      invalid != nullptr ? nullptr : Arguments<Method>(std::index_sequence_for<Values...>(), values...);
  return {backend, Method::name, arguments, invalid};
}

// ----- From the bus

std::string TextAt(GVariant* values, std::size_t place);
Bytes BytesAt(GVariant* values, std::size_t place);
std::vector<MWPTypePlayMode> PlayModesAt(GVariant* values, std::size_t place);
int ByteAt(GVariant* values, std::size_t place);
bool BooleanAt(GVariant* values, std::size_t place);
int IntegerAt(GVariant* values, std::size_t place);
unsigned UnsignedAt(GVariant* values, std::size_t place);

/// The value at a place of a reply or signal, as what it is stored in.
template <typename Member, std::size_t place, typename Stored>
Stored ValueAt(GVariant* values) {
  constexpr std::string_view type = Member::out[place];
  if constexpr (type == "s") {
    static_assert(std::is_same_v<Stored, std::string> || std::is_same_v<Stored, Address>,
                  "the interface has a text here");
    return Stored(TextAt(values, place));
  } else if constexpr (type == "v") {
    return BytesAt(values, place);
  } else if constexpr (type == "a(yy)") {
    return PlayModesAt(values, place);
  } else {
    static_assert(std::is_enum_v<Stored> || std::is_integral_v<Stored>, "the interface has a number here");
    if constexpr (type == "y") {
      return static_cast<Stored>(ByteAt(values, place));
    } else if constexpr (type == "b") {
      static_assert(std::is_same_v<Stored, bool>, "the interface has yes or no here");
      return BooleanAt(values, place);
    } else if constexpr (type == "i") {
      return static_cast<Stored>(IntegerAt(values, place));
    } else {
      static_assert(type == "u", "a type that no reply or signal had so far");
      return static_cast<Stored>(UnsignedAt(values, place));
    }
  }
}

/// Becomes what it is assigned to.
template <typename Member, std::size_t place>
struct Value {
  GVariant* values;
  template <typename Stored>
  operator Stored() const {
    return ValueAt<Member, place, Stored>(values);
  }
};

/// Whether the variant at a place holds bytes.
bool HoldsBytes(GVariant* values, std::size_t place);

template <typename Member, std::size_t... places>
bool VariantsHoldBytes([[maybe_unused]] GVariant* values, std::index_sequence<places...>) {
  return ((Member::out[places] != "v" || HoldsBytes(values, places)) && ...);
}

/// Whether the values have the types of the interface. What it calls a variant always holds bytes.
template <typename Member>
bool Fits(GVariant* values) {
  return g_variant_is_of_type(values, G_VARIANT_TYPE(Member::outType)) != FALSE &&
         VariantsHoldBytes<Member>(values, std::make_index_sequence<Member::out.size()>());
}

template <typename Member, typename Structure, std::size_t... places>
Structure Fill([[maybe_unused]] GVariant* values, std::index_sequence<places...>) {
  return Structure{Value<Member, places>{values}...};
}
/// A structure whose members are the first values, one by one; with all of them if count is not given.
template <typename Member, typename Structure, std::size_t count = Member::out.size()>
Structure Fill(GVariant* values) {
  return Fill<Member, Structure>(values, std::make_index_sequence<count>());
}

Failure BadTypes(const char* method);

/// The one value out of an order says whether the service accepted it; with none, it always does.
template <typename Method>
Answer<> Order(GVariant* values) {
  static_assert(Method::out.size() <= 1, "an order answers nothing but whether it is accepted");
  if (!Fits<Method>(values)) {
    return BadTypes(Method::name);
  }
  if constexpr (Method::out.size() == 1) {
    if (ValueAt<Method, 0, std::conditional_t<Method::out[0] == "b", bool, int>>(values) == 0) {
      return Refusal();
    }
  }
  return Accepted();
}

/// The one value out is the answer.
template <typename Method, typename T>
Answer<T> Question(GVariant* values) {
  static_assert(Method::out.size() == 1, "the answer is one value");
  if (!Fits<Method>(values)) {
    return BadTypes(Method::name);
  }
  return ValueAt<Method, 0, T>(values);
}

/// The values out are the members of the answer.
template <typename Method, typename T>
Answer<T> Structure(GVariant* values) {
  if (!Fits<Method>(values)) {
    return BadTypes(Method::name);
  }
  return Fill<Method, T>(values);
}

/// The values out are the members of the answer, the last one says whether there is one.
template <typename Method, typename T>
Answer<T> CheckedQuestion(GVariant* values) {
  constexpr std::size_t kMembers = Method::out.size() - 1;
  if (!Fits<Method>(values)) {
    return BadTypes(Method::name);
  }
  if (ValueAt<Method, kMembers, std::conditional_t<Method::out[kMembers] == "b", bool, int>>(values) == 0) {
    return Refusal();
  }
  if constexpr (std::is_aggregate_v<T>) {
    return Fill<Method, T, kMembers>(values);
  } else {
    static_assert(kMembers == 1, "the answer is one value");
    return ValueAt<Method, 0, T>(values);
  }
}

}  // namespace btasync::wire

#endif
