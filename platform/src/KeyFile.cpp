#include "KeyFile.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/stat.h>

namespace {

constexpr int kOwnerOnly = 0600;

}  // namespace

KeyFile::KeyFile() : m_file(g_key_file_new()) {}

KeyFile::Load KeyFile::LoadFrom(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) {
    m_reason = g_strerror(errno);
    return errno == ENOENT ? Load::MISSING : Load::UNREADABLE;
  }
  // A device or a pipe could block the reader, and must never be replaced by a file.
  if (!S_ISREG(status.st_mode)) {
    m_reason = "not a regular file";
    return Load::UNREADABLE;
  }

  OwnedError error;
  OwnedText content;
  gsize length = 0;
  if (!g_file_get_contents(path.c_str(), content.Out(), &length, error.Out())) {
    m_reason = error->message;
    // Between the two looks at it the file may have been moved away.
    return g_error_matches(error.get(), G_FILE_ERROR, G_FILE_ERROR_NOENT) ? Load::MISSING : Load::UNREADABLE;
  }

  // GLib takes NUL bytes, which some file systems leave after a power cut, for an empty line.
  if (std::memchr(content.get(), '\0', length) != nullptr) {
    m_reason = "contains NUL bytes";
    return Load::BROKEN;
  }
  OwnedKeyFile loaded(g_key_file_new());
  if (!g_key_file_load_from_data(loaded.get(), content.get(), length, G_KEY_FILE_KEEP_COMMENTS,
                                 error.Out())) {
    m_reason = error->message;
    return Load::BROKEN;
  }
  m_file = std::move(loaded);
  return Load::OK;
}

bool KeyFile::SaveTo(const std::string& path) {
  gsize length = 0;
  const OwnedText content(g_key_file_to_data(m_file.get(), &length, nullptr));
  const auto flags =
      static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
  OwnedError error;
  if (!g_file_set_contents_full(path.c_str(), content.get(), static_cast<gssize>(length), flags, kOwnerOnly,
                                error.Out())) {
    m_reason = error->message;
    return false;
  }
  return true;
}

KeyFile::Lookup KeyFile::GetInt(const std::string& group, const std::string& key, int* value) {
  OwnedError error;
  const int found = g_key_file_get_integer(m_file.get(), group.c_str(), key.c_str(), error.Out());
  if (!error) {
    *value = found;
    return Lookup::OK;
  }
  m_reason = error->message;
  const bool missing = g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_KEY_NOT_FOUND) ||
                       g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_GROUP_NOT_FOUND);
  return missing ? Lookup::MISSING : Lookup::NOT_A_NUMBER;
}

void KeyFile::SetInt(const std::string& group, const std::string& key, int value) {
  g_key_file_set_integer(m_file.get(), group.c_str(), key.c_str(), value);
}
