#include "support/TemporaryDirectory.h"

#include "support/GlibPointers.h"

namespace bttest {

TemporaryDirectory::TemporaryDirectory() {
  ErrorCollector error;
  const CharPtr path(g_dir_make_tmp("bttest-XXXXXX", error));
  error.ThrowIfSet("making a temporary directory");
  m_path = path.get();
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

}  // namespace bttest
