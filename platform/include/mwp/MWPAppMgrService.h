#ifndef MWP_MWPAPPMGRSERVICE_H
#define MWP_MWPAPPMGRSERVICE_H

#include <mwp/IMWPAppListener.h>
#include <mwp/IMWPListener.h>

/// The application manager, which informs its listeners when service modules come up.
///
/// The stand-in has nobody to ask: whoever plays the application manager (a test, a demo) calls the Notify
/// methods. A listener that was deleted without removing itself is still in the registry; notify only while
/// all registered listeners live.
class MWPAppMgrService : public IMWPListener<IMWPAppListener> {
 public:
  /// Calls OnModuleStatusChanged on every listener, on the calling thread.
  void NotifyModuleStatus(AppBootInfo info);
};

/// The application manager of this process; never null, never deleted.
MWPAppMgrService* MWP_GetAppMgrService();

#endif
