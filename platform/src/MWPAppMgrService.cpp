#include <mwp/MWPAppMgrService.h>

namespace {

/// Holds the registry for the length of a walk, also when a listener throws.
class RegistryLock {
 public:
  explicit RegistryLock(MWPAppMgrService& registry) : m_registry(registry) { m_registry.LockListener(); }
  ~RegistryLock() { m_registry.UnlockListener(); }
  RegistryLock(const RegistryLock&) = delete;
  RegistryLock& operator=(const RegistryLock&) = delete;

 private:
  MWPAppMgrService& m_registry;
};

}  // namespace

void MWPAppMgrService::NotifyModuleStatus(AppBootInfo info) {
  RegistryLock lock(*this);
  const std::set<IMWPAppListener*>& listeners = GetListeners();
  for (auto next = listeners.begin(); next != listeners.end();) {
    IMWPAppListener* const listener = *next;
    // A listener may change what it is given; the next one is to see the original.
    AppBootInfo copy = info;
    listener->OnModuleStatusChanged(copy);
    // The callback may have added and removed listeners, so the walk goes on by address.
    next = listeners.upper_bound(listener);
  }
}

MWPAppMgrService* MWP_GetAppMgrService() {
  static MWPAppMgrService* const service = new MWPAppMgrService;
  return service;
}
