// All that the library needs of a head unit's middleware, as little as it can be.

#include <mwp/MWPAppMgrService.h>
#include <mwp/MWPLibConfigs.h>
#include <mwp/MWPLog.h>
#include <mwp/MWPMutex.h>
#include <mwp/MWPPersistService.h>
#include <mwp/MWPSource.h>

#include <map>
#include <mutex>
#include <utility>

#define MWP_LOG_SOURCE "examples/platform/ExamplePlatform"

// The log: a category, and the two functions that the library calls.

struct zlog_category_s {
  const char* name;
};

zlog_category_t* zlog_get_category(const char* name) {
  static zlog_category_t category{name};
  return &category;
}

void vzlog(zlog_category_t* category, const char* file, size_t fileLength, const char* function,
           size_t functionLength, long line, int level, const char* format, va_list arguments) {
  std::fprintf(stderr, "%s %d %.*s %.*s:%ld ", category->name, level, static_cast<int>(fileLength), file,
               static_cast<int>(functionLength), function, line);
  std::vfprintf(stderr, format, arguments);
  std::fputc('\n', stderr);
}

void zlog(zlog_category_t* category, const char* file, size_t fileLength, const char* function,
          size_t functionLength, long line, int level, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  vzlog(category, file, fileLength, function, functionLength, line, level, format, arguments);
  va_end(arguments);
}

zlog_category_t* liblog_category = zlog_get_category("example-platform");

// The mutex. It has to be recursive: listeners may come and go inside of a callback.

MWPMutex::MWPMutex() = default;
MWPMutex::~MWPMutex() = default;
void MWPMutex::Lock() { m_mutex.lock(); }
void MWPMutex::Unlock() { m_mutex.unlock(); }

// The application manager reports which modules are up. Nobody calls this here: a head unit's manager does.

void MWPAppMgrService::NotifyModuleStatus(AppBootInfo info) {
  LockListener();
  for (IMWPAppListener* const listener : std::set<IMWPAppListener*>(GetListeners())) {
    AppBootInfo own = info;
    listener->OnModuleStatusChanged(own);
  }
  UnlockListener();
}

MWPAppMgrService* MWP_GetAppMgrService() {
  static MWPAppMgrService* const service = new MWPAppMgrService;
  return service;
}

// Settings that last, and the defaults of those that were never set.

namespace {

class Settings : public MWPPersistService {
 public:
  int ReadInt(int category, int key, int* value) override {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_values.find({category, key});
    if (found == m_values.end()) {
      return -1;
    }
    *value = found->second;
    return 0;
  }
  int WriteInt(int category, int key, int value, int /*flags*/) override {
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_values[{category, key}] = value;
    return 0;
  }

 private:
  std::mutex m_mutex;
  std::map<std::pair<int, int>, int> m_values;
};

class Defaults : public MWPLibConfigs {
 public:
  int GetInt(const std::string& path) override {
    MWP_LOG(MWP_LOG_INFO, "the default of %s is 1", path.c_str());
    return 1;
  }
};

}  // namespace

MWPPersistService* MWP_GetA7PersistService() {
  static MWPPersistService* const service = new Settings;
  return service;
}

MWPLibConfigs* GetLibConfigs() {
  static MWPLibConfigs* const configs = new Defaults;
  return configs;
}

// Who is heard: everybody.

int MWPSource::Request(int /*source*/, AudioGainType /*gain*/) { return 0; }
int MWPSource::ActiveSourceConfirm(int /*source*/, int /*confirmation*/) { return 0; }
int MWPSource::DeactiveSourceConfirm(int /*source*/, int /*confirmation*/) { return 0; }
