// libFuzzer target: the helpers that carry byte buffers, with any variant. The first byte of an input chooses
// the type, the others are the serialised value, sound or not.

#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <vector>

#include "fuzz/FuzzCheck.h"
#include "fuzz/LogCount.h"
#include "glib/Owned.h"
#include "ipc/D-Bus/bt_variant.h"

namespace {

using bttest::Check;

constexpr const char* kTypes[] = {"v", "v", "v", "ay", "s", "(v)", "av", "a{sv}", "i", "mv"};

/// Extracts into a buffer that has room for the bytes and not one more.
void CheckExtracting(GVariant* value) {
  OwnedVariant bytes;
  if (g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT)) {
    bytes.reset(g_variant_get_variant(value));
  }
  const bool isBuffer = bytes != nullptr && g_variant_is_of_type(bytes.get(), G_VARIANT_TYPE_BYTESTRING);
  const gsize size = isBuffer ? g_variant_get_size(bytes.get()) : 0;
  const std::unique_ptr<unsigned char[]> buffer(new unsigned char[size]);

  bttest::TakeErrors();
  Check(bt_extract_variant_data(buffer.get(), value) == static_cast<int>(size), "all bytes are counted");
  Check(size == 0 || std::memcmp(buffer.get(), g_variant_get_data(bytes.get()), size) == 0,
        "all bytes are copied");
  Check(bttest::TakeErrors() == (isBuffer ? 0 : 1), "what holds no bytes is an error");
  Check(bt_extract_variant_data(nullptr, value) == 0, "nothing goes to no buffer");
}

void CheckRoundTrip(std::vector<unsigned char> bytes) {
  const int length = static_cast<int>(bytes.size());
  const OwnedVariant value(bt_build_variant_data(bytes.data(), length));
  Check(g_variant_is_of_type(value.get(), G_VARIANT_TYPE_VARIANT), "a variant is built");
  const std::unique_ptr<unsigned char[]> buffer(new unsigned char[bytes.size()]);
  Check(bt_extract_variant_data(buffer.get(), value.get()) == length, "what was put in comes out");
  Check(length == 0 || std::memcmp(buffer.get(), bytes.data(), bytes.size()) == 0,
        "what was put in comes out as it was");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  bttest::CountErrorsFromNowOn();
  if (size == 0) {
    return -1;
  }
  const GVariantType* const type = G_VARIANT_TYPE(kTypes[data[0] % std::size(kTypes)]);
  std::vector<unsigned char> bytes(data + 1, data + size);
  const OwnedVariant value(
      g_variant_new_from_data(type, bytes.data(), bytes.size(), FALSE, nullptr, nullptr));
  CheckExtracting(value.get());
  const OwnedVariant sound(g_variant_get_normal_form(value.get()));
  CheckExtracting(sound.get());
  CheckRoundTrip(bytes);
  return 0;
}
