#ifndef IPC_SHAREMEMORY_SHMUNPACKUTILS_H
#define IPC_SHAREMEMORY_SHMUNPACKUTILS_H

#include <bluetooth/MWPBtExport.h>
#include <bluetooth/ShareMemID.h>

/// A cursor into a list segment.
class MWP_BT_API ShmUnPackUtils {
 public:
  /// Puts the cursor behind the count of a list segment and returns the count. Returns 0, for a segment that
  /// is not attached with the cursor at null, if the segment holds no list (g_ShmIdMap) or is not attached.
  int StartShmUnPackList(ShareMemID id);

  /// Reads the string at the cursor into out and puts the cursor behind it. Returns false, with out and the
  /// cursor untouched, if the cursor is null, and with an error in the log if no string ends inside the
  /// segment or the segment was detached meanwhile. One that was destroyed stays attached and is read on.
  /// Instantiated for std::string.
  template <typename T>
  bool UnPackDataFromShareMemory(T& out);

  /// Where the next item is; null before a successful start.
  const unsigned char* Cursor() const { return m_pCursor; }

 private:
  const unsigned char* m_pCursor = nullptr;
};

#endif
