#include "contract/WireValues.h"

#include <limits>
#include <stdexcept>

#include "contract/ValueText.h"

namespace bttest {
namespace {

constexpr int kOrdinary = 0;
constexpr int kZero = 1;
constexpr int kLargest = 2;

GVariant* MakeBytes(std::size_t place, int variety) {
  std::vector<guint8> bytes;
  if (variety == kOrdinary) {
    bytes = {1, 0, 255, static_cast<guint8>(place)};
  } else if (variety != kZero) {
    bytes.assign(5000 + place, static_cast<guint8>(variety));
  }
  return g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1);
}

std::string MakeText(std::size_t place, int variety) {
  switch (variety) {
    case kOrdinary:
      return "00:1A:7d:DA:71:1" + std::to_string(place % 10);
    case kZero:
      return "";
    case kLargest:
      return std::string(10000 + place, 'x');
    default:
      return "M\u00fcller \u260e \u6f22\u5b57 \U0001f4de " + std::to_string(place);
  }
}

int MakeNumber(std::size_t place, int variety, int smallest, int largest) {
  switch (variety) {
    case kOrdinary:
      return 1 + static_cast<int>(place);
    case kZero:
      return 0;
    case kLargest:
      return largest;
    default:
      return smallest;
  }
}

GVariant* MakeValue(const std::string& signature, std::size_t place, int variety) {
  using Limits = std::numeric_limits<gint32>;
  if (signature == "y") {
    return g_variant_new_byte(static_cast<guint8>(MakeNumber(place, variety, 128, 255)));
  }
  if (signature == "b") {
    return g_variant_new_boolean((static_cast<int>(place) + variety) % 2 == 0);
  }
  if (signature == "i") {
    return g_variant_new_int32(MakeNumber(place, variety, Limits::min(), Limits::max()));
  }
  if (signature == "u") {
    return g_variant_new_uint32(static_cast<guint32>(MakeNumber(place, variety, -1, Limits::max())));
  }
  if (signature == "s") {
    return g_variant_new_string(MakeText(place, variety).c_str());
  }
  if (signature == "v") {
    return g_variant_new_variant(MakeBytes(place, variety));
  }
  if (signature == "(yy)") {
    return g_variant_new("(yy)", MakeNumber(place, variety, 128, 255),
                         MakeNumber(place + 1, variety, 128, 255));
  }
  if (signature == "a(yy)") {
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(yy)"));
    for (int i = 0; i < variety * 3; ++i) {
      g_variant_builder_add(&builder, "(yy)", i, 255 - i);
    }
    return g_variant_builder_end(&builder);
  }
  throw std::logic_error("the interface has no such type: " + signature);
}

GVariant* MakeTupleOf(const std::vector<OwnedVariant>& values) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE_TUPLE);
  for (const OwnedVariant& value : values) {
    g_variant_builder_add_value(&builder, value.get());
  }
  return g_variant_builder_end(&builder);
}

}  // namespace

GVariant* MakeTuple(const Arguments& arguments, int variety) {
  std::vector<OwnedVariant> values;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    values.push_back(OwnedVariant(MakeValue(arguments[i].signature, i, variety)));
  }
  return MakeTupleOf(values);
}

OwnedVariant In::Child(std::size_t i) const { return OwnedVariant(g_variant_get_child_value(m_tuple, i)); }

int In::Int(std::size_t i) const {
  const OwnedVariant child = Child(i);
  switch (g_variant_classify(child.get())) {
    case G_VARIANT_CLASS_BYTE:
      return g_variant_get_byte(child.get());
    case G_VARIANT_CLASS_BOOLEAN:
      return g_variant_get_boolean(child.get());
    case G_VARIANT_CLASS_INT32:
      return g_variant_get_int32(child.get());
    case G_VARIANT_CLASS_UINT32:
      return static_cast<int>(g_variant_get_uint32(child.get()));
    default:
      throw std::logic_error("not a number");
  }
}

std::string In::Text(std::size_t i) const {
  return i == m_invalidText ? "caf\xe9" : g_variant_get_string(Child(i).get(), nullptr);
}

std::vector<unsigned char> In::Bytes(std::size_t i) const {
  const OwnedVariant child = Child(i);
  const OwnedVariant bytes(g_variant_get_variant(child.get()));
  gsize size = 0;
  const auto* const data =
      static_cast<const unsigned char*>(g_variant_get_fixed_array(bytes.get(), &size, 1));
  return {data, data + size};
}

MWPTypePlayMode In::PlayMode(std::size_t i) const {
  guint8 type = 0;
  guint8 value = 0;
  g_variant_get(Child(i).get(), "(yy)", &type, &value);
  MWPTypePlayMode mode;
  mode.nType = type;
  mode.nValue = value;
  return mode;
}

std::vector<std::string> TextsOf(GVariant* arguments) {
  const In in(arguments);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < g_variant_n_children(arguments); ++i) {
    const OwnedVariant value(g_variant_get_child_value(arguments, i));
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING)) {
      texts.push_back(ValueText::Of(in.Text(i)));
    } else if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_VARIANT)) {
      const std::vector<unsigned char> bytes = in.Bytes(i);
      texts.push_back(ValueText::Of(std::string(bytes.begin(), bytes.end())));
    } else if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_ARRAY)) {
      std::vector<MWPTypePlayMode> modes;
      for (std::size_t j = 0; j < g_variant_n_children(value.get()); ++j) {
        modes.push_back(In(value.get()).PlayMode(j));
      }
      texts.push_back(ValueText::Of(modes));
    } else if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_UINT32)) {
      texts.push_back(ValueText::Of(g_variant_get_uint32(value.get())));
    } else {
      texts.push_back(ValueText::Of(in.Int(i)));
    }
  }
  return texts;
}

Out& Out::Add(GVariant* value) {
  m_values.push_back(OwnedVariant(value));
  return *this;
}

Out& Out::Int(int value) {
  const std::string& signature = m_arguments.at(m_values.size()).signature;
  if (signature == "y") {
    // What does not fit shows as another value than was sent.
    return Add(g_variant_new_byte(static_cast<guint8>(value == (value & 255) ? value : 77)));
  }
  if (signature == "b") {
    return Add(g_variant_new_boolean(value == 1 ? TRUE : FALSE));
  }
  if (signature == "u") {
    return Add(g_variant_new_uint32(static_cast<guint32>(value)));
  }
  return Add(g_variant_new_int32(value));
}

Out& Out::Text(const std::string& value) { return Add(g_variant_new_string(value.c_str())); }

Out& Out::PlayModes(const std::vector<MWPTypePlayMode>& modes) {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("a(yy)"));
  for (const MWPTypePlayMode& mode : modes) {
    g_variant_builder_add(&builder, "(yy)", mode.nType, mode.nValue);
  }
  return Add(g_variant_builder_end(&builder));
}

GVariant* Out::Tuple() const {
  if (m_values.size() != m_arguments.size()) {
    throw std::logic_error("values are missing");
  }
  return MakeTupleOf(m_values);
}

}  // namespace bttest
