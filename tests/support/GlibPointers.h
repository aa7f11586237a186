#ifndef TESTS_SUPPORT_GLIBPOINTERS_H
#define TESTS_SUPPORT_GLIBPOINTERS_H

#include "support/GlibHelpers.h"

// The names by which tests/async/ still knows the owners of glib/.

namespace bttest {

using VariantPtr = OwnedVariant;
using ConnectionPtr = OwnedObject<GDBusConnection>;
using MessagePtr = OwnedObject<GDBusMessage>;
using NodeInfoPtr = OwnedNodeInfo;
using CharPtr = OwnedText;

inline VariantPtr Own(GVariant* value) { return OwnedVariant(value); }

class ErrorCollector {
 public:
  operator GError**() { return m_error.Out(); }
  void ThrowIfSet(const std::string& doing) const { bttest::ThrowIfSet(m_error, doing); }

 private:
  OwnedError m_error;
};

}  // namespace bttest

#endif
