#ifndef MWP_MWPPERSISTSERVICE_H
#define MWP_MWPPERSISTSERVICE_H

/// The persistence service: integers that survive a restart, by category and key.
class MWPPersistService {
 public:
  virtual ~MWPPersistService() {}
  /// Reads a value into *value. Returns 0 on success; non-zero, with *value untouched, if the key has none or
  /// the store cannot be read.
  virtual int ReadInt(int category, int key, int* value) = 0;
  /// Writes a value; flags is 0. Returns 0 once the value is safe from a power cut, non-zero on failure.
  virtual int WriteInt(int category, int key, int value, int flags) = 0;
};

/// The persistence service of this process; never null, never deleted.
///
/// The stand-in keeps the values in a key file, replaced atomically at every write: the path in the
/// environment variable MWP_PERSIST_FILE, else libbt/persist.ini in the user's state directory.
MWPPersistService* MWP_GetA7PersistService();

#endif
