#ifndef TESTS_CONTRACT_DERIVEDCALLS_H
#define TESTS_CONTRACT_DERIVEDCALLS_H

#include <cstddef>
#include <list>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "contract/WireValues.h"

// Calls of C++ methods with the values of a method of the interface: each parameter takes the next value, a
// reference that is not const takes none and brings one back.

namespace bttest {

/// Makes the arguments of one call, in the order of the parameters. Must outlive the call.
class ArgumentSource {
 public:
  explicit ArgumentSource(const In& in) : m_in(in) {}

  template <typename Param>
  std::decay_t<Param> Next() {
    using Value = std::decay_t<Param>;
    if constexpr (kIsOut<Param>) {
      return Before<Value>();
    } else if constexpr (std::is_same_v<Value, std::string>) {
      return m_in.Text(m_next++);
    } else if constexpr (std::is_same_v<Value, std::vector<unsigned char>>) {
      return m_in.Bytes(m_next++);
    } else if constexpr (std::is_same_v<Value, MWPTypePlayMode>) {
      return m_in.PlayMode(m_next++);
    } else if constexpr (std::is_same_v<Value, char*>) {
      m_buffer = m_in.Bytes(m_next++);
      m_lengthIsNext = true;
      return reinterpret_cast<char*>(m_buffer.data());
    } else {
      if (m_lengthIsNext) {
        m_lengthIsNext = false;
        return static_cast<Value>(m_buffer.size());
      }
      return static_cast<Value>(m_in.Int(m_next++));
    }
  }

  template <typename Param>
  static constexpr bool kIsOut =
      std::is_lvalue_reference_v<Param> && !std::is_const_v<std::remove_reference_t<Param>>;

 private:
  /// What an out argument holds before the call; the call has to replace it.
  template <typename Value>
  static Value Before() {
    if constexpr (std::is_same_v<Value, std::string>) {
      return "before";
    } else if constexpr (std::is_integral_v<Value>) {
      return 5;
    } else {
      return Value();
    }
  }

  const In& m_in;
  std::size_t m_next = 0;
  std::vector<unsigned char> m_buffer;
  bool m_lengthIsNext = false;
};

template <typename... Params>
std::tuple<std::decay_t<Params>...> TakeArguments(ArgumentSource& source) {
  return {source.Next<Params>()...};  // braces: one after the other
}

// What a call brings back, in the order in which the method's description has the values.

inline void Collect(Out& out, const std::string& text) { out.Text(text); }
inline void Collect(Out& out, const std::vector<MWPTypePlayMode>& modes) { out.PlayModes(modes); }
inline void Collect(Out& out, const MWPTypeMediaInfo& i) {
  out.Text(i.title).Text(i.artist).Text(i.album).Text(i.track).Text(i.numOfTracks).Text(i.genre);
  out.Text(i.duration);
}
inline void Collect(Out& out, const MWPTypeConnectionState& s) { out.Int(s.status).Text(s.address); }
inline void Collect(Out& out, const MWPTypeDevice& d) {
  EXPECT_TRUE(d.vecExtraInfo.empty());
  out.Text(d.strName).Text(d.strAddr);
  out.Int(d.eProfileId).Int(d.eEnableProfileId).Int(d.eConnectStatus).Int(d.eSupportType);
}
/// Lists are published in shared memory, where these calls find none.
template <typename Item>
void Collect(Out&, const std::list<Item>& items) {
  EXPECT_TRUE(items.empty());
}
template <typename Number, typename = std::enable_if_t<std::is_integral_v<Number>>>
void Collect(Out& out, Number number) {
  out.Int(static_cast<int>(number));
}

template <typename Param, typename Value>
void CollectOut(Out& out, const Value& value) {
  if constexpr (ArgumentSource::kIsOut<Param>) {
    Collect(out, value);
  }
}

/// Calls a method of object with the values of in, and collects what it brings back.
template <typename Class, typename Result, typename... Params>
void CallWith(Class& object, Result (Class::*method)(Params...), const In& in, Out& out) {
  ArgumentSource source(in);
  auto arguments = TakeArguments<Params...>(source);
  std::apply(
      [&](auto&... argument) {
        if constexpr (std::is_void_v<Result>) {
          (object.*method)(argument...);
          (CollectOut<Params>(out, argument), ...);
        } else {
          const Result result = (object.*method)(argument...);
          (CollectOut<Params>(out, argument), ...);
          Collect(out, result);
        }
      },
      arguments);
}

}  // namespace bttest

#endif
