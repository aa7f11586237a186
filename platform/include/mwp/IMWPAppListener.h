#ifndef MWP_IMWPAPPLISTENER_H
#define MWP_IMWPAPPLISTENER_H

#include <string>

/// What the application manager reports about a service module.
struct AppBootInfo {
  int nModule;  ///< a ServiceModule
  int nStatus;  ///< non-zero: the module is up
};

enum ServiceModule : int {
  SERVICE_MODULE_BLUETOOTH = 8,
};

enum BootStage : int {
  BOOT_STAGE_EARLY = 0,
  BOOT_STAGE_NORMAL = 1,
  BOOT_STAGE_COMPLETE = 2,
};

enum eLogLevel : int {
  LOG_LEVEL_DEBUG = 20,
  LOG_LEVEL_INFO = 40,
  LOG_LEVEL_WARNING = 80,
  LOG_LEVEL_ERROR = 100,
};

/// Listener of the application manager. Every method does nothing by default.
class __attribute__((visibility("default"))) IMWPAppListener {
 public:
  virtual ~IMWPAppListener() {}
  virtual void OnModuleStatusChanged(AppBootInfo&) {}
  virtual void OnSystemBootStageNotify(BootStage) {}
  virtual void OnAndroidAutoAbortHandle(int) {}
  virtual void OnAAConnectionTimeoutNotify(int, const std::string&) {}
  virtual void OnReloadLogConfigNotify(eLogLevel) {}
  virtual void OnResourceDataChangeNotify() {}
  virtual void OnProcRebootNotify(ServiceModule) {}
};

#endif
