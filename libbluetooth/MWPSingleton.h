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
    if (Load() == nullptr) {
      ms_cs.Lock();
      if (ms_pSingleton == nullptr) {
        Store(new T);
      }
      ms_cs.Unlock();
    }
    return Load();
  }

  /// Deletes the object, if there is one. The next GetInstance() makes another.
  static void DeleteInstance() {
    ms_cs.Lock();
    delete ms_pSingleton;
    Store(nullptr);
    ms_cs.Unlock();
  }

  static T* ms_pSingleton;
  static MWPCriticalSection ms_cs;  ///< guards creation and deletion

 private:
  // The pointer is an ordinary exported variable, read without the lock. These make sure that a thread that
  // sees the pointer sees the finished object as well.
  static T* Load() { return __atomic_load_n(&ms_pSingleton, __ATOMIC_ACQUIRE); }
  static void Store(T* object) { __atomic_store_n(&ms_pSingleton, object, __ATOMIC_RELEASE); }
};

template <typename T>
T* MWPSingleton<T>::ms_pSingleton = nullptr;

template <typename T>
MWPCriticalSection MWPSingleton<T>::ms_cs;

#endif
