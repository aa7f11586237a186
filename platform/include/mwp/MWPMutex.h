#ifndef MWP_MWPMUTEX_H
#define MWP_MWPMUTEX_H

#include <mutex>

/// The middleware's mutex. Recursive: the thread that holds it may lock it again, and unlocks as often.
class MWPMutex {
 public:
  MWPMutex();
  ~MWPMutex();
  MWPMutex(const MWPMutex&) = delete;
  MWPMutex& operator=(const MWPMutex&) = delete;

  void Lock();
  void Unlock();

 private:
  std::recursive_mutex m_mutex;
};

/// The name under which singletons keep their mutex.
typedef MWPMutex MWPCriticalSection;

#endif
