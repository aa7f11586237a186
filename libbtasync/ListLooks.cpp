#include "libbtasync/ListLooks.h"

#include <new>
#include <string>

#include "protocol/Segments.h"

namespace btasync {
inline namespace v0 {
namespace detail {

template <typename Function>
void ListLooks::Guard(Function function) {
  try {
    function();
  } catch (const std::bad_alloc&) {
    Fail(Failure{Reason::Malformed,
                 std::string(kSegmentCatalogue[m_id].name) + ": there is not enough memory"});
  }
}

void ListLooks::LookFirst() {
  Guard([this] { m_first = CopySegment(m_id, m_findEnd); });
}

void ListLooks::LookAgain(const ListQuestion& question) {
  Guard([&] {
    const SegmentCopy second = CopySegment(m_id, m_findEnd);
    if (!second.whyNone.empty()) {
      Fail(Failure{Reason::Malformed, second.whyNone});
    } else if (second.bytes != m_first.bytes) {
      Fail(Failure{Reason::Malformed,
                   std::string(kSegmentCatalogue[m_id].name) + " has changed while it was read"});
    } else {
      Decode(second, question);
    }
  });
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
