#ifndef TOOLS_BTCTL_COMMANDS_BIND_H
#define TOOLS_BTCTL_COMMANDS_BIND_H

#include <functional>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "btctl/commands/FromText.h"
#include "btctl/commands/ToJson.h"

namespace btctl {

/// What a facade method answered.
struct Reply {
  Json result;             ///< null if the method answers nothing
  std::vector<Json> outs;  ///< its out arguments, in order
};

/// A call of a facade method with all its arguments. It owns all that it needs.
using Call = std::function<Reply()>;
/// Reads the texts that are given for the arguments of a method, and throws a Failure if one cannot be read.
using Prepare = std::function<Call(const std::vector<Argument>&, const Given&)>;

/// An argument that the method writes to.
template <typename Param>
constexpr bool kIsOut = std::is_lvalue_reference_v<Param> && !std::is_const_v<std::remove_reference_t<Param>>;

template <typename... Params>
class Parameters {
 public:
  using Values = std::tuple<std::decay_t<Params>...>;

  static Values Read(const std::vector<Argument>& arguments, const Given& given) {
    [[maybe_unused]] std::size_t next = 0;
    return Values{ReadOne<Params>(arguments, given, next)...};  // in order: the braces see to that
  }

  static std::vector<Json> Outs(const Values& values) {
    return Outs(values, std::index_sequence_for<Params...>());
  }

 private:
  template <typename Param>
  static std::decay_t<Param> ReadOne(const std::vector<Argument>& arguments, const Given& given,
                                     std::size_t& next) {
    if constexpr (kIsOut<Param>) {
      return {};
    } else {
      const std::size_t place = next++;
      return FromText<std::decay_t<Param>>(given[place], arguments.at(place));
    }
  }

  template <std::size_t... places>
  static std::vector<Json> Outs([[maybe_unused]] const Values& values, std::index_sequence<places...>) {
    std::vector<Json> outs;
    (AddIfOut<Params>(outs, std::get<places>(values)), ...);
    return outs;
  }

  template <typename Param, typename Value>
  static void AddIfOut(std::vector<Json>& outs, const Value& value) {
    if constexpr (kIsOut<Param>) {
      outs.push_back(ToJson(value));
    }
  }
};

/// How a facade method is called with texts. Its in arguments are read in order, and its out arguments start
/// empty.
template <typename Facade, typename Result, typename... Params>
Prepare Bind(Result (Facade::*method)(Params...)) {
  using P = Parameters<Params...>;
  return [method](const std::vector<Argument>& arguments, const Given& given) -> Call {
    const auto values = std::make_shared<typename P::Values>(P::Read(arguments, given));
    return [method, values] {
      Reply reply;
      const auto call = [method](auto&... value) { return (Facade().*method)(value...); };
      if constexpr (std::is_void_v<Result>) {
        std::apply(call, *values);
      } else {
        reply.result = ToJson(std::apply(call, *values));
      }
      reply.outs = P::Outs(*values);
      return reply;
    };
  };
}

}  // namespace btctl

#endif
