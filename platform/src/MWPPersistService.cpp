#include <mwp/MWPPersistService.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <glib.h>
#include <mwp/MWPLog.h>

#include "FileLock.h"
#include "KeyFile.h"
#include "glib/Owned.h"

#define MWP_LOG_SOURCE "platform/MWPPersistService"

namespace {

constexpr int kOk = 0;
constexpr int kFailed = -1;
constexpr int kOwnerOnlyDirectory = 0700;

/// Asked for at every use, so that a process may change its environment.
std::string PersistFile() {
  const char* const file = std::getenv("MWP_PERSIST_FILE");
  if (file != nullptr && *file != '\0') {
    return file;
  }
  return std::string(g_get_user_state_dir()) + "/libbt/persist.ini";
}

std::string Group(int category) { return "category-" + std::to_string(category); }

bool MakeDirectoryOf(const std::string& file) {
  const OwnedText directory(g_path_get_dirname(file.c_str()));
  const bool there = g_mkdir_with_parents(directory.get(), kOwnerOnlyDirectory) == 0;
  if (!there) {
    MWP_LOG(MWP_LOG_ERROR, "cannot make the directory %s: %s", directory.get(), g_strerror(errno));
  }
  return there;
}

/// Moves a file that cannot be understood aside, where a person can still look at it.
bool SetAside(const std::string& file, const std::string& reason) {
  const std::string aside = file + ".broken";
  if (std::rename(file.c_str(), aside.c_str()) != 0) {
    MWP_LOG(MWP_LOG_ERROR, "%s is broken (%s) and cannot be moved to %s: %s", file.c_str(), reason.c_str(),
            aside.c_str(), g_strerror(errno));
    return false;
  }
  MWP_LOG(MWP_LOG_ERROR, "%s is broken (%s): moved to %s, values start anew", file.c_str(), reason.c_str(),
          aside.c_str());
  return true;
}

/// Keeps nothing in memory between two calls, so that each sees what other processes wrote.
class KeyFilePersistService : public MWPPersistService {
 public:
  int ReadInt(int category, int key, int* value) override;
  int WriteInt(int category, int key, int value, int flags) override;
};

int KeyFilePersistService::ReadInt(int category, int key, int* value) {
  const std::string file = PersistFile();
  KeyFile values;
  const KeyFile::Load loaded = values.LoadFrom(file);
  if (loaded == KeyFile::Load::MISSING) {
    return kFailed;  // nothing was written yet, which is no error
  }
  if (loaded != KeyFile::Load::OK) {
    MWP_LOG(MWP_LOG_ERROR, "cannot read %s: %s", file.c_str(), values.Reason().c_str());
    return kFailed;
  }
  const KeyFile::Lookup found = values.GetInt(Group(category), std::to_string(key), value);
  if (found == KeyFile::Lookup::NOT_A_NUMBER) {
    MWP_LOG(MWP_LOG_ERROR, "category %d key %d in %s: %s", category, key, file.c_str(),
            values.Reason().c_str());
  }
  return found == KeyFile::Lookup::OK ? kOk : kFailed;
}

int KeyFilePersistService::WriteInt(int category, int key, int value, int) {
  const std::string file = PersistFile();
  if (!MakeDirectoryOf(file)) {
    return kFailed;
  }
  // Not the file itself: each write replaces it, and the lock would stay with the one replaced.
  const FileLock lock(file + ".lock");
  if (!lock.IsHeld()) {
    MWP_LOG(MWP_LOG_ERROR, "cannot lock %s.lock: %s", file.c_str(), g_strerror(lock.Error()));
    return kFailed;
  }

  KeyFile values;
  const KeyFile::Load loaded = values.LoadFrom(file);
  if (loaded == KeyFile::Load::UNREADABLE) {
    MWP_LOG(MWP_LOG_ERROR, "cannot read %s: %s", file.c_str(), values.Reason().c_str());
    return kFailed;
  }
  if (loaded == KeyFile::Load::BROKEN && !SetAside(file, values.Reason())) {
    return kFailed;
  }
  values.SetInt(Group(category), std::to_string(key), value);
  if (!values.SaveTo(file)) {
    MWP_LOG(MWP_LOG_ERROR, "cannot write %s: %s", file.c_str(), values.Reason().c_str());
    return kFailed;
  }
  return kOk;
}

}  // namespace

MWPPersistService* MWP_GetA7PersistService() {
  static MWPPersistService* const service = new KeyFilePersistService;
  return service;
}
