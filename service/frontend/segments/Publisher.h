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
/// signals to clients, so that what these report is there. Results are false, with an error in the log, if
/// the segment cannot be had. All of it on the thread of the main loop.
///
/// Nobody locks a segment. While a list is written its count is 0: a client that reads meanwhile finds an
/// empty list or a whole one, but one that has begun to read before may get parts of both.
class Publisher : public StackObserver {
 public:
  /// Both must outlive this.
  Publisher(SegmentOwner& segments, BluetoothStack& stack);

  /// Makes the segments of the lists, or empties those that are there, so that nothing of a service before
  /// this one is found in them, and fills those that are kept current. Call it once, when the service owns
  /// its name.
  void PublishAll();

  // The lists that clients ask for, each in its segment, as they are now. What does not fit is left out at
  // the end, by whole records, with a warning in the log. All clients share a segment: each call replaces
  // what another client has asked for before.

  /// In the order of the phone book. The time it takes grows with the number of contacts.
  bool PublishContacts();
  bool PublishFavorites();
  /// The latest first; none for a type that there is not.
  bool PublishCallLogs(CallLogType type);
  /// A single contact by its place in the phone book, from 0; an empty list if there is none.
  bool PublishContact(int index);
  /// A single entry by its id; an empty list if there is none.
  bool PublishCallLog(int id);

  /// PairedDevicesChanged, and everything about calls: writes the list that has changed. Other events are
  /// ignored.
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
