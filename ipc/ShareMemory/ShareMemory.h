#ifndef IPC_SHAREMEMORY_SHAREMEMORY_H
#define IPC_SHAREMEMORY_SHAREMEMORY_H

#include <map>

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/ShareMemID.h>

/// The segments that hold a list, and their sizes in bytes: no other segment is unpacked as one. Filled when
/// the library is loaded.
extern MWP_BT_API std::map<int, int> g_ShmIdMap;

/// The System V segments shared with the Bluetooth service. Whoever comes first creates a segment,
/// zero-filled and with mode 0666; the other attaches it. No lock is taken here.
class MWP_BT_API ShareMemory {
 public:
  /// The identifier of a segment, as shmget gives it for the key made from the service's executable and id;
  /// negative, with an error on standard error, on failure.
  static int CommShm(ShareMemID id, int size, int shmflg);
  /// Creates or finds a segment, attaches it and records its address, unless one is recorded: then the
  /// segment is attached a second time and the first address stays. Returns false if the segment could not be
  /// had. A segment that cannot be attached is recorded with the address (void*)-1, and answers true.
  static bool InitShareMemory(ShareMemID id, unsigned int size);
  /// The recorded address; null if there is none.
  static void* GetShareMemory(ShareMemID id);
  /// Detaches a recorded segment and forgets it. Returns what shmdt returns, or -1 if nothing is recorded.
  static int DetachShareMemory(ShareMemID id);
  /// Forgets a recorded segment and returns what shmctl(IPC_RMID) returns, or -1 if nothing is recorded. It
  /// is the id itself that shmctl is given: unless that number happens to be a segment's identifier, nothing
  /// is removed. The memory stays attached.
  static int DestroyShareMemory(ShareMemID id);

  /// The recorded addresses by ShareMemID.
  static std::map<int, void*> m_ShmId_AddrMap;
};

#endif
