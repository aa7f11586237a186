#ifndef BLUETOOTH_IMWPBTLISTENERBASE_H
#define BLUETOOTH_IMWPBTLISTENERBASE_H

#include <bluetooth/MWPBtExport.h>

/// Kind of a listener. An event is delivered only to the listeners of its kind.
enum MWPBtListenerType : int {
  COM_LISTENER = 0,    ///< IMWPBtComListener
  HFP_LISTENER = 1,    ///< IMWPBtPhoneListener
  MEDIA_LISTENER = 2,  ///< IMWPBtMediaListener
  PBAP_LISTENER = 3,   ///< IMWPBtPbapListener
  MAP_LISTENER = 4,    ///< IMWPBtMessageListener
  SPP_LISTENER = 5,    ///< IMWPBtSppListener
  BLE_LISTENER = 6,    ///< IMWPBtBleListener
  MAX_LISTENER = 7,    ///< none of them; receives no event
};

/// Root of the listener interfaces. Applications derive from one of the seven interfaces, never from this.
///
/// Constructing a listener registers it and destroying it unregisters it; there is no other call. It may be
/// constructed before MWP_CreateBlueTooth() and then hears events once the library is started. Callbacks run
/// one after another, in ascending order of the listeners' addresses, on the thread whose main loop delivers
/// the service's signals, with the registry locked: a slow callback delays all others, and a callback must
/// not wait for another thread that constructs or destroys a listener. A listener may be constructed or
/// destroyed inside a callback; it is never called after its destruction. Construct and destroy listeners on
/// the thread that runs the loop, since an event on another thread could find them half built.
///
/// An exception that a callback throws is logged and goes no further. If it is the constructor of another
/// listener that throws inside the callback, that listener is unregistered again and never called.
class MWP_BT_API IMWPBtListenerBase {
 public:
  IMWPBtListenerBase();
  virtual ~IMWPBtListenerBase();

  /// A MWPBtListenerType, set by the interface's constructor. Read only.
  int m_nType;
};

#endif
