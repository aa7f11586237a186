#ifndef SERVICE_FRONTEND_SEGMENTS_PUBLISHER_H
#define SERVICE_FRONTEND_SEGMENTS_PUBLISHER_H

#include <map>
#include <vector>

#include "ipc/ShareMemory/SegmentOwner.h"
#include "service/frontend/segments/CallTableSegment.h"
#include "service/stack/BluetoothStack.h"

namespace btservice {

/// Puts the lists of the stack into the segments: those that clients ask for when they are asked for, the
/// paired devices and the calls whenever they change. Add it to the stack before the observer that sends
/// signals to clients, so that what these report is there. Results are false if the segment cannot be had.
class Publisher : public StackObserver {
 public:
  /// Both must outlive this.
  Publisher(SegmentOwner& segments, BluetoothStack& stack);

  /// Makes the segments of the lists, or empties those that are there, and fills those that are kept current.
  void PublishAll();

  // The lists that clients ask for, each in its segment, as they are now. What does not fit is left out at
  // the end, by whole records.

  bool PublishContacts();
  bool PublishFavorites();
  bool PublishCallLogs(CallLogType type);
  /// A single contact, or call log entry; an empty list if there is none.
  bool PublishContact(int index);
  bool PublishCallLog(int id);

  void OnStackEvent(const StackEvent& event) override;

 private:
  template <typename Record>
  bool PublishList(ShareMemID id, const std::vector<Record>& records);
  void PublishPairedDevices();
  void PublishCalls();
  void Clear(const SegmentEntry& entry);
  bool Write(ShareMemID id, const Bytes& contents);

  SegmentOwner& m_segments;
  BluetoothStack& m_stack;
  CallTableSegment m_callTable;
  std::map<ShareMemID, std::size_t> m_used;  ///< bytes that were written last
};

}  // namespace btservice

#endif
