#include "KeyFile.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/stat.h>

namespace {

struct FreeText {
  void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

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

  GError* error = nullptr;
  char* content = nullptr;
  gsize length = 0;
  if (!g_file_get_contents(path.c_str(), &content, &length, &error)) {
    // Between the two looks at it the file may have been moved away.
    const bool missing = g_error_matches(error, G_FILE_ERROR, G_FILE_ERROR_NOENT);
    TakeReason(error);
    return missing ? Load::MISSING : Load::UNREADABLE;
  }
  const Text owner(content);

  // GLib takes NUL bytes, which some file systems leave after a power cut, for an empty line.
  if (std::memchr(content, '\0', length) != nullptr) {
    m_reason = "contains NUL bytes";
    return Load::BROKEN;
  }
  std::unique_ptr<GKeyFile, Deleter> loaded(g_key_file_new());
  if (!g_key_file_load_from_data(loaded.get(), content, length, G_KEY_FILE_KEEP_COMMENTS, &error)) {
    TakeReason(error);
    return Load::BROKEN;
  }
  m_file = std::move(loaded);
  return Load::OK;
}

bool KeyFile::SaveTo(const std::string& path) {
  gsize length = 0;
  const Text content(g_key_file_to_data(m_file.get(), &length, nullptr));
  const auto flags =
      static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
  GError* error = nullptr;
  if (!g_file_set_contents_full(path.c_str(), content.get(), static_cast<gssize>(length), flags, kOwnerOnly,
                                &error)) {
    TakeReason(error);
    return false;
  }
  return true;
}

KeyFile::Lookup KeyFile::GetInt(const std::string& group, const std::string& key, int* value) {
  GError* error = nullptr;
  const int found = g_key_file_get_integer(m_file.get(), group.c_str(), key.c_str(), &error);
  if (error == nullptr) {
    *value = found;
    return Lookup::OK;
  }
  const bool missing = g_error_matches(error, G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_KEY_NOT_FOUND) ||
                       g_error_matches(error, G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_GROUP_NOT_FOUND);
  TakeReason(error);
  return missing ? Lookup::MISSING : Lookup::NOT_A_NUMBER;
}

void KeyFile::SetInt(const std::string& group, const std::string& key, int value) {
  g_key_file_set_integer(m_file.get(), group.c_str(), key.c_str(), value);
}

void KeyFile::TakeReason(GError* error) {
  m_reason = error->message;
  g_error_free(error);
}
