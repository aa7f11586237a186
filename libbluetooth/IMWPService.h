#ifndef LIBBLUETOOTH_IMWPSERVICE_H
#define LIBBLUETOOTH_IMWPSERVICE_H

#include <mwp/IMWPListener.h>
#include <mwp/MWPMutex.h>

/// An object that is started and stopped, is itself a T, and keeps a registry of T.
template <typename T>
class __attribute__((visibility("default"))) IMWPService : public T, public IMWPListener<T> {
 public:
  ~IMWPService() override { m_nStartResult = 0; }

  /// Starts; called with the service lock held. Non-zero on success.
  virtual int InitInstance() = 0;
  /// Stops; called with the service lock held.
  virtual int ExitInstance() = 0;
  /// Called, with the registry locked, when a listener is added and it is the only one.
  virtual void InitListener() {}
  /// Called, with the registry locked, when a listener is removed and none is left.
  virtual void ExitListener() {}

  void OnListenerAdded(T*) override {
    if (this->GetListeners().size() == 1) {
      InitListener();
    }
  }

  void OnListenerRemoved(T*) override {
    if (this->GetListeners().empty()) {
      ExitListener();
    }
  }

  /// Starts unless started, and returns the start result.
  __attribute__((visibility("hidden"))) int Start() {
    m_serviceLock.Lock();
    if (m_nStartResult == 0) {
      m_nStartResult = InitInstance();
    }
    const int result = m_nStartResult;
    m_serviceLock.Unlock();
    return result;
  }

  /// Stops if started. What ExitInstance() returns becomes the start result, so a stopped object counts as
  /// started; it is there to be deleted.
  __attribute__((visibility("hidden"))) void Stop() {
    m_serviceLock.Lock();
    if (m_nStartResult != 0) {
      m_nStartResult = ExitInstance();
    }
    m_serviceLock.Unlock();
  }

 private:
  int m_nStartResult = 0;  ///< 0: not started; otherwise what InitInstance() returned
  MWPMutex m_serviceLock;  ///< serialises start and stop
};

#endif
