#ifndef MWP_PLATFORM_KEYFILE_H
#define MWP_PLATFORM_KEYFILE_H

#include <string>

#include "glib/Owned.h"

/// A file of groups, each with keys and values, read and written as a whole. Comments in it are kept.
class __attribute__((visibility("hidden"))) KeyFile {
 public:
  enum class Load {
    OK,
    MISSING,     ///< there is no such file
    UNREADABLE,  ///< there is something, but its content cannot be had
    BROKEN,      ///< the content is no key file
  };
  enum class Lookup { OK, MISSING, NOT_A_NUMBER };

  KeyFile();

  /// Fills this object, which is empty so far, with the content of the file; it stays empty on failure.
  Load LoadFrom(const std::string& path);
  /// Puts the content in place of the file in one step, safe from a power cut once this returns true.
  bool SaveTo(const std::string& path);

  /// Stores the integer in *value, which is untouched on failure.
  Lookup GetInt(const std::string& group, const std::string& key, int* value);
  void SetInt(const std::string& group, const std::string& key, int value);

  /// Why the last call that failed did so.
  const std::string& Reason() const { return m_reason; }

 private:
  OwnedKeyFile m_file;
  std::string m_reason;
};

#endif
