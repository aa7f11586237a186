#ifndef MWP_PLATFORM_FILELOCK_H
#define MWP_PLATFORM_FILELOCK_H

#include <string>

/// Holds a file locked against all other holders, threads of this process included, while it lives. The
/// file is made if need be and stays: removing it would let two holders lock two files of one name.
class __attribute__((visibility("hidden"))) FileLock {
 public:
  /// Waits for the lock.
  explicit FileLock(const std::string& path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  bool IsHeld() const { return m_error == 0; }
  /// The errno of why the lock is not held.
  int Error() const { return m_error; }

 private:
  int m_descriptor;
  int m_error = 0;
};

#endif
