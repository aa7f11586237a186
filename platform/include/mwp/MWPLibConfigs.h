#ifndef MWP_MWPLIBCONFIGS_H
#define MWP_MWPLIBCONFIGS_H

#include <string>

/// The configuration store with the defaults of the head unit.
class MWPLibConfigs {
 public:
  virtual ~MWPLibConfigs() {}
  /// The integer at a path such as "/setting/default_bluetooth_power"; 0, with an error in the log, if there
  /// is none.
  virtual int GetInt(const std::string& path) = 0;
};

/// The configuration store of this process; never null, never deleted.
///
/// The stand-in reads a key file, in which the path "/group/key" is the key of that group: the file named by
/// the environment variable MWP_CONFIG_FILE, else libbt/defaults.ini in $XDG_CONFIG_HOME (~/.config) if it is
/// there, else the installed one.
MWPLibConfigs* GetLibConfigs();

#endif
