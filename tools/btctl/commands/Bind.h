#ifndef TOOLS_BTCTL_COMMANDS_BIND_H
#define TOOLS_BTCTL_COMMANDS_BIND_H

#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "btctl/commands/FromText.h"
#include "btctl/commands/ToJson.h"

// How a facade method is called with texts. Every facade method is bound by this, so what can be compiled
// once is not in the header: how a value is read (FromText.cpp) and shown (ToJson.cpp), and what a Reply is.

namespace btctl {

struct Reply;

/// A call of a facade method with all its arguments; fills in what the method answers. It owns all that it
/// needs.
using Call = std::function<void(Reply&)>;
/// Reads the texts that are given for the arguments of a method, and throws a Failure if one cannot be read.
using Prepare = std::function<Call(const std::vector<Argument>&, const Given&)>;

/// Where a reply holds the result.
Json& ResultIn(Reply& reply);
/// Where it holds one more out argument.
Json& NextOutIn(Reply& reply);

/// Calls a function and stores what it answers as the result.
template <typename Function>
void StoreResult(Reply& reply, const Function& function) {
  if constexpr (std::is_void_v<std::invoke_result_t<Function>>) {
    function();
  } else {
    Store(ResultIn(reply), function());
  }
}

/// What the call of any function is to MakeRequest. The function owns all that it needs.
template <typename Function>
Call CallOf(Function function) {
  return [function](Reply& reply) { StoreResult(reply, function); };
}

/// An argument that the method writes to.
template <typename Param>
constexpr bool kIsOut = std::is_lvalue_reference_v<Param> && !std::is_const_v<std::remove_reference_t<Param>>;

template <typename Param, typename Value>
void StoreIfOut([[maybe_unused]] Reply& reply, [[maybe_unused]] const Value& value) {
  if constexpr (kIsOut<Param>) {
    Store(NextOutIn(reply), value);
  }
}

/// The in arguments that are given, one after the other.
class Reader {
 public:
  Reader(const std::vector<Argument>& arguments, const Given& given)
      : m_arguments(arguments), m_given(given) {}

  /// The value of the next one. An out argument is given by nobody, and starts empty.
  template <typename Param>
  std::decay_t<Param> Read() {
    if constexpr (kIsOut<Param>) {
      return {};
    } else {
      const std::size_t place = m_next++;
      return FromText<std::decay_t<Param>>(m_given[place], m_arguments.at(place));
    }
  }

 private:
  const std::vector<Argument>& m_arguments;
  const Given& m_given;
  std::size_t m_next = 0;
};

/// How a facade method is called with texts. Its in arguments are read in order, and its out arguments start
/// empty.
template <typename Facade, typename Result, typename... Params>
Prepare Bind(Result (Facade::*method)(Params...)) {
  return [method](const std::vector<Argument>& arguments, const Given& given) -> Call {
    using Values = std::tuple<std::decay_t<Params>...>;
    [[maybe_unused]] Reader reader(arguments, given);
    const auto values =
        std::make_shared<Values>(Values{reader.Read<Params>()...});  // in order: the braces see to it
    return [method, values](Reply& reply) {
      std::apply(
          [&](auto&... value) {
            StoreResult(reply, [&] { return (Facade().*method)(value...); });
            (StoreIfOut<Params>(reply, value), ...);
          },
          *values);
    };
  };
}

}  // namespace btctl

#endif
