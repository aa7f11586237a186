#ifndef TESTS_SUPPORT_VIRTUALSLOT_H
#define TESTS_SUPPORT_VIRTUALSLOT_H

#include <cstddef>
#include <cstring>

#include <gtest/gtest.h>

namespace bttest {

/// The virtual slot of a method, counted from 0 with the two destructors first, as the ABI keeps it in a
/// pointer to the method: one more than the offset in the table or, on ARM, that offset and a mark elsewhere.
template <typename Result, typename Class, typename... Params>
std::size_t SlotOf(Result (Class::*method)(Params...)) {
  std::ptrdiff_t parts[2];
  static_assert(sizeof parts == sizeof method, "not the ABI that this knows");
  std::memcpy(parts, &method, sizeof parts);
#if defined(__arm__) || defined(__aarch64__)
  EXPECT_EQ(parts[1] & 1, 1) << "not virtual";
  const std::ptrdiff_t offset = parts[0];
#else
  EXPECT_EQ(parts[0] & 1, 1) << "not virtual";
  const std::ptrdiff_t offset = parts[0] - 1;
#endif
  return static_cast<std::size_t>(offset) / sizeof(void*);
}

}  // namespace bttest

#endif
