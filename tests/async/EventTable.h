#ifndef TESTS_ASYNC_EVENTTABLE_H
#define TESTS_ASYNC_EVENTTABLE_H

#include <functional>
#include <string>
#include <vector>

#include <btasync/Service.h>

// All structures of Events.h, as a table.

namespace bttest {

/// The value of one field.
struct Field {
  std::string text;  ///< as ValueText
  bool isYesOrNo;
};
using Fields = std::vector<Field>;

struct EventRow {
  std::string structure;
  std::string signal;
  /// Subscribes; take is called with the values of each event.
  std::function<void(btasync::Service&, btasync::Scope&, std::function<void(const Fields&)> take)> subscribe;
};

const std::vector<EventRow>& EventTable();

}  // namespace bttest

#endif
