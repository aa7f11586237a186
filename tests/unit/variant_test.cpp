// Byte buffers in variants.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "glib/OwnedBus.h"
#include "ipc/D-Bus/bt_variant.h"
#include "support/LogCapture.h"

namespace {

TEST(BuildVariant, GivesAFloatingVariantThatHoldsAnArrayOfBytes) {
  char data[] = "abc";
  GVariant* const variant = bt_build_variant_data(data, 3);
  EXPECT_TRUE(g_variant_is_floating(variant));
  const OwnedVariant owned(variant);
  EXPECT_STREQ(g_variant_get_type_string(owned.get()), "v");
  EXPECT_STREQ(OwnedText(g_variant_print(owned.get(), TRUE)).get(), "<[byte 0x61, 0x62, 0x63]>");
}

TEST(BuildVariant, OfNoLengthOrLessHoldsAnEmptyArrayOfBytes) {
  char data[] = "abc";
  for (const int length : {0, -1, -2147483647 - 1}) {
    const OwnedVariant variant(bt_build_variant_data(data, length));
    const OwnedVariant bytes(g_variant_get_variant(variant.get()));
    EXPECT_STREQ(g_variant_get_type_string(bytes.get()), "ay");
    EXPECT_EQ(g_variant_n_children(bytes.get()), 0u);
  }
}

TEST(BuildVariant, CopiesTheBytes) {
  char data[] = "abc";
  const OwnedVariant variant(bt_build_variant_data(data, 3));
  data[0] = 'x';
  char out[3];
  EXPECT_EQ(bt_extract_variant_data(out, variant.get()), 3);
  EXPECT_EQ(std::string(out, 3), "abc");
}

TEST(BuildVariant, OfANullBufferWithALengthIsLoggedAndEmpty) {
  bttest::LogCapture log;
  for (const int length : {5, 1}) {
    log.Clear();
    const OwnedVariant variant(bt_build_variant_data(nullptr, length));
    char out[8];
    EXPECT_EQ(bt_extract_variant_data(out, variant.get()), 0);
    EXPECT_EQ(log.OfLevel(100).size(), 1u);
  }
  EXPECT_TRUE(log.Complaints().empty());
}

TEST(ExtractVariant, OfAnEmptyArrayWritesNothing) {
  const OwnedVariant variant(bt_build_variant_data(nullptr, 0));
  char out = 'x';
  EXPECT_EQ(bt_extract_variant_data(&out, variant.get()), 0);
  EXPECT_EQ(out, 'x');
}

TEST(ExtractVariant, OfASingleByteWritesThatByte) {
  char data = 'a';
  const OwnedVariant variant(bt_build_variant_data(&data, 1));
  char out[] = "xy";
  EXPECT_EQ(bt_extract_variant_data(out, variant.get()), 1);
  EXPECT_STREQ(out, "ay");
}

TEST(ExtractVariant, RoundTripKeepsEveryByteZerosIncluded) {
  std::vector<char> data(100000);
  for (std::size_t i = 0; i < data.size(); ++i) {
    data[i] = static_cast<char>(i * 7);
  }
  const OwnedVariant variant(bt_build_variant_data(data.data(), static_cast<int>(data.size())));
  std::vector<char> out(data.size());
  EXPECT_EQ(bt_extract_variant_data(out.data(), variant.get()), static_cast<int>(data.size()));
  EXPECT_EQ(out, data);
}

TEST(ExtractVariant, OfAnotherTypeIsLoggedAndCopiesNothing) {
  bttest::LogCapture log;
  char out = 'x';
  const OwnedVariant text(g_variant_new_variant(g_variant_new_string("abc")));
  EXPECT_EQ(bt_extract_variant_data(&out, text.get()), 0);
  const OwnedVariant number(g_variant_new_int32(5));
  EXPECT_EQ(bt_extract_variant_data(&out, number.get()), 0);
  EXPECT_EQ(bt_extract_variant_data(&out, nullptr), 0);
  EXPECT_EQ(out, 'x');
  EXPECT_EQ(log.OfLevel(100).size(), 3u);
  EXPECT_TRUE(log.Complaints().empty());
}

}  // namespace
