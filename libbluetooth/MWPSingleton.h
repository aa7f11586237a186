#ifndef LIBBLUETOOTH_MWPSINGLETON_H
#define LIBBLUETOOTH_MWPSINGLETON_H

#include <mwp/MWPMutex.h>

/// The one object of class T, created on first use and deleted by whoever owns its end of life.
template <typename T>
class __attribute__((visibility("default"))) MWPSingleton {
 public:
  /// The object; never null. An exception of the constructor passes on to the caller and leaves ms_cs locked,
  /// since it is locked and unlocked by plain calls: after it only the same thread can try again.
  static T* GetInstance() {
    // ms_pSingleton is an ordinary exported variable that is read without the lock. The atomic access makes
    // sure that a thread that sees the pointer sees the finished object as well.
    T* object = __atomic_load_n(&ms_pSingleton, __ATOMIC_ACQUIRE);
    if (object == nullptr) {
      ms_cs.Lock();
      object = ms_pSingleton;
      if (object == nullptr) {
        object = new T;
        __atomic_store_n(&ms_pSingleton, object, __ATOMIC_RELEASE);
      }
      ms_cs.Unlock();
    }
    return object;
  }

  static T* ms_pSingleton;
  static MWPCriticalSection ms_cs;  ///< guards creation and deletion
};

template <typename T>
T* MWPSingleton<T>::ms_pSingleton = nullptr;

template <typename T>
MWPCriticalSection MWPSingleton<T>::ms_cs;

#endif
