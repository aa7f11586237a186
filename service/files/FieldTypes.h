#ifndef SERVICE_FILES_FIELDTYPES_H
#define SERVICE_FILES_FIELDTYPES_H

#include <limits>
#include <string>

#include "service/time/Scheduler.h"

namespace btservice {

// Values of a world for which there are more rules than their C++ types have.

/// A whole number within bounds.
struct BoundedInt {
  int& value;
  int least;
  int most;
};

/// A time in milliseconds, not negative.
struct Duration {
  static constexpr int kMost = std::numeric_limits<int>::max();
  Milliseconds& value;
};

/// A Bluetooth address.
struct AddressText {
  std::string& value;
};

/// A text of a given form.
struct PatternText {
  std::string& value;
  const char* pattern;  ///< a regular expression
  const char* meaning;  ///< "a date such as 2026-05-29"
};

}  // namespace btservice

#endif
