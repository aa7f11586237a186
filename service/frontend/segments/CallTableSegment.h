#ifndef SERVICE_FRONTEND_SEGMENTS_CALLTABLESEGMENT_H
#define SERVICE_FRONTEND_SEGMENTS_CALLTABLESEGMENT_H

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/frontend/segments/Records.h"

namespace btservice {

/// SH_CALL_INFO_LIST. Applications read it whenever they like, and nobody locks it: what can change in one
/// store does, and otherwise the number of calls never names one that is not there.
class CallTableSegment {
 public:
  /// The owner of the segments must outlive it.
  explicit CallTableSegment(SegmentOwner& segments) : m_segments(segments) {}

  /// Writes the table as it is now, in the order of calls. Calls beyond its two slots are counted and not
  /// listed. Texts that are too long are cut between two characters. A segment that was removed meanwhile is
  /// made anew. False, with an error in the log, if the segment cannot be had.
  bool Publish(const std::vector<CallInfo>& calls);

 private:
  SegmentOwner& m_segments;
  PackedCallTable m_written{};
};

/// Turns the table in memory, which holds before, into now. If only seconds differ nothing else is touched,
/// and each of them is one store. Otherwise the number of calls is written first when it shrinks, last when
/// it grows.
void RewriteCallTable(std::uint8_t* memory, const PackedCallTable& before, const PackedCallTable& now);

}  // namespace btservice

#endif
