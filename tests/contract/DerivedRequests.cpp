#include "contract/DerivedRequests.h"

#include <tuple>
#include <type_traits>

#include <bluetooth/MWPBtBle.h>
#include <bluetooth/MWPBtMedia.h>
#include <bluetooth/MWPBtMessage.h>
#include <bluetooth/MWPBtPbap.h>
#include <bluetooth/MWPBtPhone.h>
#include <bluetooth/MWPBtSpp.h>

#include "contract/DerivedCalls.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"

namespace bttest {
namespace {

constexpr int kOrdinaryValues = 0;

OwnedVariant OrdinaryValues(const Arguments& arguments) {
  return OwnedVariant(MakeTuple(arguments, kOrdinaryValues));
}

template <typename Class, typename Result, typename... Params>
RequestCall DerivedCall(const std::string& name, Result (Class::*method)(Params...)) {
  const OwnedVariant values = OrdinaryValues(BluetoothInterface().Method(name).in);
  const In in(values.get());
  ArgumentSource source(in);
  const auto arguments = TakeArguments<Params...>(source);
  return std::apply([&](const auto&... argument) { return CallOf(method, argument...); }, arguments);
}

/// What a method with this result answers when the service replies with ordinary values.
template <typename Class, typename Result, typename... Params>
std::string DerivedAnswer(const std::string& name, Result (Class::*)(Params...)) {
  std::vector<std::string> values = TextsOf(OrdinaryValues(BluetoothInterface().Method(name).out).get());
  std::string answer;
  if constexpr (!std::is_void_v<Result>) {
    answer = values.empty() ? "0" : values.back();
    values.resize(values.empty() ? 0 : values.size() - 1);
  }
  return values.empty() ? answer : answer + " -> " + ValueText::Joined(values);
}

/// A request of a facade, and the client's method of the same name if there is one.
struct Request {
  std::string facade;
  std::string name;
  std::string firstParameter;
  std::function<RequestCase()> facadeCase;
  std::function<RequestCase()> clientCase;
};

template <typename Method>
RequestCase DerivedCase(const std::string& name, Method method, RequestCall RequestCalls::*part) {
  const MethodDescription& description = BluetoothInterface().Method(name);
  RequestCase request;
  request.name = name;
  request.calls.*part = DerivedCall(name, method);
  request.wire = name + ToText(OrdinaryValues(description.in).get());
  if (!description.out.empty()) {
    request.reply = ToText(OrdinaryValues(description.out).get());
  }
  request.answer = DerivedAnswer(name, method);
  return request;
}

template <typename Method, typename FindClientMethod>
Request MakeRequest(const char* facade, const char* name, const char* firstParameter, Method method,
                    FindClientMethod findClientMethod) {
  Request request{facade, name, firstParameter, {}, {}};
  request.facadeCase = [=] { return DerivedCase(name, method, &RequestCalls::facade); };
  if constexpr (std::is_invocable_v<FindClientMethod, MWPBtClient*>) {
    request.clientCase = [=] {
      return DerivedCase(name, findClientMethod(static_cast<MWPBtClient*>(nullptr)), &RequestCalls::client);
    };
  }
  return request;
}

const std::vector<Request>& Requests() {
#define BT_REQUEST(Facade, Method, first)                                                      \
  MakeRequest(#Facade, #Method, first, &Facade::Method,                                        \
              [](auto* client) -> decltype(&std::remove_pointer_t<decltype(client)>::Method) { \
                return &std::remove_pointer_t<decltype(client)>::Method;                       \
              }),
  static const std::vector<Request> requests{
#include "derived/requests.inc"
  };
#undef BT_REQUEST
  return requests;
}

/// Makes a call that a method of MWPBtCom gets, with an address of its own in front of ordinary values.
template <typename Result, typename... Params>
int CallWithAddress(MWPBtCom& com, const std::string& name, Result (MWPBtCom::*method)(Params...),
                    const std::string& address) {
  const OwnedVariant values = OrdinaryValues(BluetoothInterface().Method(name).in);
  const In in(values.get());
  ArgumentSource source(in);
  auto arguments = TakeArguments<Params...>(source);
  if constexpr (sizeof...(Params) > 0) {
    if constexpr (std::is_same_v<std::tuple_element_t<0, decltype(arguments)>, std::string>) {
      std::get<0>(arguments) = address;
    }
  }
  return std::apply(
      [&](auto&... argument) {
        if constexpr (std::is_same_v<Result, int>) {
          return (com.*method)(argument...);
        } else {
          static_cast<void>((com.*method)(argument...));
          return 0;
        }
      },
      arguments);
}

template <typename Class, typename Result, typename... Params>
void AddIfChecked(std::vector<CheckedMethod>& methods, const std::string& name, const std::string& first,
                  Result (Class::*method)(Params...)) {
  if constexpr (std::is_same_v<Class, MWPBtCom>) {
    if (first == "address" && MethodsThatDoNotCheckTheirAddress().count(name) == 0) {
      methods.push_back({name, [name, method](MWPBtCom& com, const std::string& address) {
                           return CallWithAddress(com, name, method, address);
                         }});
    }
  }
}

}  // namespace

std::vector<RequestCase> DerivedRequests(const std::set<std::string>& written) {
  std::vector<RequestCase> cases;
  for (const Request& request : Requests()) {
    if (written.count(request.name) != 0) {
      continue;
    }
    cases.push_back(request.facadeCase());
    if (request.clientCase) {
      cases.push_back(request.clientCase());
    }
  }
  return cases;
}

std::set<std::string> OfferedMethods() {
#define BT_OFFER(Facade, Method) #Facade "::" #Method,
  return {
#include "derived/offers.inc"
  };
#undef BT_OFFER
}

std::set<std::string> OfferedUnderTheirName() {
  std::set<std::string> names;
  for (const Request& request : Requests()) {
    names.insert(request.name);
  }
  return names;
}

const std::set<std::string>& MethodsThatDoNotCheckTheirAddress() {
  static const std::set<std::string> names{"RejectPair", "DisableProfile", "GetRemotePairDeviceName",
                                           "MovePairDevicePosion"};
  return names;
}

std::vector<CheckedMethod> MethodsThatCheckTheirAddress() {
  std::vector<CheckedMethod> methods;
#define BT_REQUEST(Facade, Method, first) AddIfChecked(methods, #Method, first, &Facade::Method);
#include "derived/requests.inc"
#undef BT_REQUEST
  return methods;
}

}  // namespace bttest
