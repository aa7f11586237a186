#include "support/TemporaryDirectory.h"

#include "support/GlibHelpers.h"

namespace bttest {

TemporaryDirectory::TemporaryDirectory() {
  OwnedError error;
  const OwnedText path(g_dir_make_tmp("bttest-XXXXXX", error.Out()));
  ThrowIfSet(error, "making a temporary directory");
  m_path = path.get();
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

}  // namespace bttest
