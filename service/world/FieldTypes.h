#ifndef SERVICE_WORLD_FIELDTYPES_H
#define SERVICE_WORLD_FIELDTYPES_H

#include <string>

#include "service/time/Scheduler.h"

namespace btservice {

// Values of a world that are more than their C++ type tells.

/// A whole number within bounds.
struct BoundedInt {
  int& value;
  int least;
  int most;
};

/// A time in milliseconds, not negative.
struct Duration {
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
