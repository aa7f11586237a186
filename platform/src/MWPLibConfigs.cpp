#include <mwp/MWPLibConfigs.h>

#include <cstdlib>

#include <mwp/MWPLog.h>

#include "KeyFile.h"

#define MWP_LOG_SOURCE "platform/MWPLibConfigs"

namespace {

/// Asked for at every use, so that a process may change its environment.
std::string ConfigFile() {
  const char* const file = std::getenv("MWP_CONFIG_FILE");
  return file != nullptr && *file != '\0' ? file : MWP_INSTALLED_CONFIG_FILE;
}

class KeyFileConfigs : public MWPLibConfigs {
 public:
  int GetInt(const std::string& path) override;
};

int KeyFileConfigs::GetInt(const std::string& path) {
  const std::string file = ConfigFile();
  const std::string::size_type slash = path.rfind('/');
  if (slash == std::string::npos || slash < 2 || path[0] != '/' || slash + 1 == path.size()) {
    MWP_LOG(MWP_LOG_ERROR, "no value for \"%s\" in %s: a path looks like /group/key", path.c_str(),
            file.c_str());
    return 0;
  }

  KeyFile configs;
  int value = 0;
  if (configs.LoadFrom(file) != KeyFile::Load::OK ||
      configs.GetInt(path.substr(1, slash - 1), path.substr(slash + 1), &value) != KeyFile::Lookup::OK) {
    MWP_LOG(MWP_LOG_ERROR, "no value for \"%s\" in %s: %s", path.c_str(), file.c_str(),
            configs.Reason().c_str());
  }
  return value;
}

}  // namespace

MWPLibConfigs* GetLibConfigs() {
  static MWPLibConfigs* const configs = new KeyFileConfigs;
  return configs;
}
