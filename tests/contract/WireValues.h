#ifndef TESTS_CONTRACT_WIREVALUES_H
#define TESTS_CONTRACT_WIREVALUES_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <bluetooth/MWPBtRecords.h>

#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"

// Values for the arguments of methods and signals, made from their signatures.

namespace bttest {

/// How many different tuples MakeTuple can make; ordinary values, zeros, largest and smallest ones.
constexpr int kVarieties = 4;

/// A tuple of values of the arguments' types, floating. Neighbouring arguments get different values.
GVariant* MakeTuple(const Arguments& arguments, int variety);

/// Reads the values of a tuple as the parameters of a request.
class In {
 public:
  explicit In(GVariant* tuple) : m_tuple(tuple) {}
  /// With text that is not valid UTF-8, which a GVariant cannot hold, in the place of one of the values.
  In(GVariant* tuple, std::size_t invalidText) : m_tuple(tuple), m_invalidText(invalidText) {}

  /// A byte, boolean or integer.
  int Int(std::size_t i) const;
  template <typename Enum>
  Enum As(std::size_t i) const {
    return static_cast<Enum>(Int(i));
  }
  std::string Text(std::size_t i) const;
  /// The bytes in a variant.
  std::vector<unsigned char> Bytes(std::size_t i) const;
  MWPTypePlayMode PlayMode(std::size_t i) const;

 private:
  OwnedVariant Child(std::size_t i) const;

  GVariant* m_tuple;
  std::optional<std::size_t> m_invalidText;
};

/// The values of a tuple as ValueText; bytes count as a text.
std::vector<std::string> TextsOf(GVariant* arguments);

/// Collects what a request answers, as a tuple of the types that the method's description gives its values.
class Out {
 public:
  explicit Out(const Arguments& arguments) : m_arguments(arguments) {}

  Out& Int(int value);
  Out& Text(const std::string& value);
  Out& PlayModes(const std::vector<MWPTypePlayMode>& modes);

  /// The tuple, floating; all values must be there.
  GVariant* Tuple() const;

 private:
  Out& Add(GVariant* value);

  Arguments m_arguments;
  std::vector<OwnedVariant> m_values;
};

}  // namespace bttest

#endif
