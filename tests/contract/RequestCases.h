#ifndef TESTS_CONTRACT_REQUESTCASES_H
#define TESTS_CONTRACT_REQUESTCASES_H

#include <cstddef>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "contract/ValueText.h"
#include "libbluetooth/MWPBtClient.h"

namespace bttest {

/// One method of a facade or of the client, to be called with given arguments. Neither if there is no such
/// method.
struct RequestCall {
  /// Calls it. The answer as ValueText, or empty if there is none; with the arguments that the method
  /// changed, it is "answer -> argument, argument".
  std::function<std::string()> make;
  /// What it answers while nobody can be asked.
  std::string idleAnswer;
};

/// A request as the facade and the client offer it, with the same arguments.
struct RequestCalls {
  RequestCall facade;
  RequestCall client;
};

enum class Guarded { YES, NO };

/// What a request does while the library is started, and the service can be asked.
struct RequestCase {
  std::string name;  ///< of the client's method, or the facade's if there is only that
  RequestCalls calls;
  std::string wire;   ///< the call that the service receives, as Recorder gives it; empty for none
  std::string reply;  ///< what the service replies, as GVariant text without types; empty for nothing
  std::string answer;
  /// NO: the client's method does the same while it is not ready.
  Guarded guarded = Guarded::YES;
};

std::vector<RequestCase> ComRequests();
std::vector<RequestCase> PhoneRequests();
std::vector<RequestCase> MediaRequests();
std::vector<RequestCase> PbapRequests();
std::vector<RequestCase> MessageRequests();
std::vector<RequestCase> SppRequests();
std::vector<RequestCase> BleRequests();
/// All of the above, and derived ones for the requests that are not among them (DerivedRequests.h): every
/// method of the client, and every method of the facades but MWPBtCom's SetPower and GetCapability, which
/// differ in more than a line says.
std::vector<RequestCase> AllRequests();

/// What a method with this result answers while nobody can be asked.
template <typename Result>
std::string IdleAnswer() {
  if constexpr (std::is_void_v<Result>) {
    return "";
  } else if constexpr (std::is_same_v<Result, std::string>) {
    return "''";
  } else if constexpr (std::is_same_v<Result, MWPTypeConnectionState>) {
    return "{6, ''}";
  } else if constexpr (std::is_same_v<Result, MWPTypeDevice>) {
    return "{'', '', [], 0, 0, 3, 0}";
  } else if constexpr (std::is_same_v<Result, MWPTypeMessage>) {
    return "{'', 3, '', '', '', '', '', 1}";
  } else {
    static_assert(std::is_same_v<Result, int>);
    return "0";
  }
}

/// The facade, or the client. Not inlined: the compiler would see the facade's size, take the method for a
/// virtual one and warn.
template <typename Class>
[[gnu::noinline]] Class& Subject() {
  if constexpr (std::is_same_v<Class, MWPBtClient>) {
    return *MWPSingleton<MWPBtClient>::GetInstance();
  } else {
    static Class facade;
    return facade;
  }
}

template <typename Tuple, std::size_t... places>
std::string ChangesText(const Tuple& before, const Tuple& after, std::index_sequence<places...>) {
  std::vector<std::string> changed;
  [[maybe_unused]] const auto note = [&](const std::string& was, const std::string& is) {
    if (was != is) {
      changed.push_back(is);
    }
  };
  (note(ValueText::Of(std::get<places>(before)), ValueText::Of(std::get<places>(after))), ...);
  return changed.empty() ? "" : " -> " + ValueText::Joined(changed);
}

template <typename Class, typename Result, typename... Params, typename... Args>
RequestCall CallOf(Result (Class::*method)(Params...), const Args&... args) {
  using Arguments = std::tuple<std::decay_t<Params>...>;
  const auto make = [method, given = Arguments(args...)] {
    Arguments arguments = given;
    std::string answer;
    std::apply(
        [&](auto&... argument) {
          if constexpr (std::is_void_v<Result>) {
            (Subject<Class>().*method)(argument...);
          } else {
            answer = ValueText::Of((Subject<Class>().*method)(argument...));
          }
        },
        arguments);
    return answer + ChangesText(given, arguments, std::index_sequence_for<Params...>());
  };
  return {make, IdleAnswer<Result>()};
}

/// The calls of a facade's method and the client's method behind it, either of which may be nullptr.
template <typename Facade, typename Client, typename... Args>
RequestCalls Asks(Facade facade, Client client, const Args&... args) {
  RequestCalls calls;
  if constexpr (!std::is_null_pointer_v<Facade>) {
    calls.facade = CallOf(facade, args...);
  }
  if constexpr (!std::is_null_pointer_v<Client>) {
    calls.client = CallOf(client, args...);
  }
  return calls;
}

}  // namespace bttest

#endif
