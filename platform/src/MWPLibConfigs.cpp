#include <mwp/MWPLibConfigs.h>

#include <cstdlib>
#include <memory>

#include <dlfcn.h>
#include <glib.h>

#include <mwp/MWPLog.h>

#include "KeyFile.h"
#include "glib/Owned.h"

#define MWP_LOG_SOURCE "platform/MWPLibConfigs"

namespace {

/// The file that lies where it is installed relative to this library, wherever the two were moved to. Empty
/// if the library cannot say where it is.
std::string FindInstalledConfigFile() {
  Dl_info library = {};
  if (dladdr(reinterpret_cast<const void*>(&GetLibConfigs), &library) == 0 || library.dli_fname == nullptr) {
    return "";
  }
  // std::filesystem would bring in pages of the C++ runtime that an application does not need otherwise.
  const std::unique_ptr<char, decltype(&std::free)> file(realpath(library.dli_fname, nullptr), std::free);
  if (file == nullptr) {
    return "";
  }
  const OwnedText folder(g_path_get_dirname(file.get()));
  return OwnedText(g_canonicalize_filename(MWP_CONFIG_FROM_LIBRARY, folder.get())).get();
}

// Found while the library is loaded: its name may be relative to the directory in which the process is now.
const std::string g_installedConfigFile = FindInstalledConfigFile();

/// Asked for at every use, so that a process may change its environment. A file of the user goes before the
/// installed one, if it is there.
std::string ConfigFile() {
  const char* const file = std::getenv("MWP_CONFIG_FILE");
  if (file != nullptr && *file != '\0') {
    return file;
  }
  const OwnedText own(g_build_filename(g_get_user_config_dir(), "libbt", "defaults.ini", nullptr));
  return g_file_test(own.get(), G_FILE_TEST_EXISTS) != FALSE ? own.get() : g_installedConfigFile;
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
