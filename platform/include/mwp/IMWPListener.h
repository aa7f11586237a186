#ifndef MWP_IMWPLISTENER_H
#define MWP_IMWPLISTENER_H

#include <cstddef>
#include <set>

#include <mwp/MWPMutex.h>

/// A registry of listeners of type T. Listeners are not owned. The hooks OnListenerAdded and
/// OnListenerRemoved run with the registry locked.
template <typename T>
class __attribute__((visibility("default"))) IMWPListener {
 public:
  virtual ~IMWPListener() {}

  /// Enters a listener; null is ignored. A listener that is there already stays in once, and the hook is
  /// called all the same.
  virtual void AddListener(T* listener) {
    if (listener == nullptr) {
      return;
    }
    const Locked locked(*this);
    m_listeners.insert(listener);
    OnListenerAdded(listener);
  }

  /// Takes a listener out; null is ignored. The hook is called even if the listener was not there.
  virtual void RemoveListener(T* listener) {
    if (listener == nullptr) {
      return;
    }
    const Locked locked(*this);
    m_listeners.erase(listener);
    OnListenerRemoved(listener);
  }

  /// The listeners in ascending order of their addresses. Takes no lock: hold it while walking the set.
  virtual std::set<T*>& GetListeners() { return m_listeners; }
  /// Takes no lock.
  virtual std::size_t GetListenerCount() { return m_listeners.size(); }

  virtual void LockListener() { m_listenerLock.Lock(); }
  virtual void UnlockListener() { m_listenerLock.Unlock(); }

  /// Hooks for who derives from this; called with the registry locked.
  virtual void OnListenerAdded(T*) {}
  virtual void OnListenerRemoved(T*) {}

 private:
  /// Holds the registry locked, also when a hook throws.
  struct __attribute__((visibility("hidden"))) Locked {
    explicit Locked(IMWPListener& registry) : m_registry(registry) { m_registry.LockListener(); }
    ~Locked() { m_registry.UnlockListener(); }
    IMWPListener& m_registry;
  };

  std::set<T*> m_listeners;
  MWPMutex m_listenerLock;
};

#endif
