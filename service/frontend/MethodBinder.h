#ifndef SERVICE_FRONTEND_METHODBINDER_H
#define SERVICE_FRONTEND_METHODBINDER_H

#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <utility>

#include "service/frontend/AnswerGate.h"
#include "service/frontend/WireValue.h"

namespace btservice {

template <typename...>
struct Types {};

/// A method of an interface: the signal by which the skeleton hands a call over, the function that answers
/// it, and the wire types of both, as the generated binding declares them.
template <typename Interface, typename In, typename Out>
struct Method;

template <typename Interface, typename... In, typename... Out>
struct Method<Interface, Types<In...>, Types<Out...>> {
  const char* signal;  ///< "handle-set-power"
  /// Sends the answer, and takes the invocation with it.
  void (*complete)(Interface*, GDBusMethodInvocation*, Out...);
};

/// A method by the two things that the generated binding has of it: its place in the table of handlers, from
/// which come the types that it takes, and the function that completes it, from which come those it answers.
template <typename Interface, typename Table, typename... In, typename... Out>
constexpr Method<Interface, Types<In...>, Types<Out...>> MakeMethod(
    const char* signal, gboolean (*Table::*)(Interface*, GDBusMethodInvocation*, In...),
    void (*complete)(Interface*, GDBusMethodInvocation*, Out...)) {
  return {signal, complete};
}

/// Has the calls of methods answered, on the thread of the main loop. What is bound must live as long as the
/// skeleton. A function that throws does not end the service: the caller gets the text as a D-Bus error,
/// InvalidArgs for std::invalid_argument and Failed for anything else.
template <typename Interface>
class MethodBinder {
 public:
  /// Neither is owned; both must outlive what is bound. gate: null if all calls are answered as they should
  /// be.
  explicit MethodBinder(Interface* skeleton, AnswerGate* gate = nullptr)
      : m_skeleton(skeleton), m_gate(gate) {}

  /// By a request that takes the arguments as they come, in the order of the interface, converted by
  /// FromWire. Its result is the one value of the answer; there is none if it returns nothing. Too few or too
  /// many parameters, or types that cannot be converted, do not compile.
  template <typename In, typename Out, typename Object, typename Result, typename Class, typename... Params>
  void Bind(const Method<Interface, In, Out>& method, Object& object, Result (Class::*request)(Params...)) {
    BindMember(method, object, request, Types<Params...>());
  }
  template <typename In, typename Out, typename Object, typename Result, typename Class, typename... Params>
  void Bind(const Method<Interface, In, Out>& method, Object& object,
            Result (Class::*request)(Params...) const) {
    BindMember(method, object, request, Types<Params...>());
  }

  /// By a function that takes the wire's types and returns the answer: nothing, a value, or a tuple. It may
  /// throw std::invalid_argument. It is kept as long as the skeleton; texts and variants that it is given are
  /// good until it returns.
  template <typename... In, typename... Out, typename Function>
  void Bind(const Method<Interface, Types<In...>, Types<Out...>>& method, Function function) {
    using Bound = BoundMethod<Function, Types<In...>, Types<Out...>>;
    g_signal_connect_data(m_skeleton, method.signal, G_CALLBACK(&Bound::OnCall),
                          new Bound{std::move(function), method.complete, m_gate}, &Bound::Delete,
                          static_cast<GConnectFlags>(0));
  }

 private:
  template <typename In, typename Out, typename Object, typename Request, typename... Params>
  void BindMember(const Method<Interface, In, Out>& method, Object& object, Request request,
                  Types<Params...> params) {
    BindConverted(method, object, request, params, In());
  }
  template <typename Method, typename Object, typename Request, typename... Params, typename... In>
  void BindConverted(const Method& method, Object& object, Request request, Types<Params...>, Types<In...>) {
    Bind(method,
         [&object, request](In... in) { return (object.*request)(FromWire<std::decay_t<Params>>(in)...); });
  }

  template <typename Function, typename In, typename Out>
  struct BoundMethod;

  template <typename Function, typename... In, typename... Out>
  struct BoundMethod<Function, Types<In...>, Types<Out...>> {
    Function function;
    void (*complete)(Interface*, GDBusMethodInvocation*, Out...);
    AnswerGate* gate;

    static gboolean OnCall(Interface* skeleton, GDBusMethodInvocation* invocation, In... in, gpointer data) {
      const auto* const self = static_cast<BoundMethod*>(data);
      if (self->gate != nullptr && self->gate->TakeOver(invocation)) {
        return TRUE;
      }
      try {
        self->Answer(skeleton, invocation, in...);
      } catch (const std::invalid_argument& problem) {
        g_dbus_method_invocation_return_error_literal(invocation, G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS,
                                                      problem.what());
      } catch (const std::exception& problem) {
        // Such as no memory for what was asked: that must not end the service.
        g_dbus_method_invocation_return_error_literal(invocation, G_DBUS_ERROR, G_DBUS_ERROR_FAILED,
                                                      problem.what());
      }
      return TRUE;
    }

    void Answer(Interface* skeleton, GDBusMethodInvocation* invocation, In... in) const {
      if constexpr (std::is_void_v<decltype(function(in...))>) {
        function(in...);
        Complete(skeleton, invocation, std::tuple<>());
      } else {
        Complete(skeleton, invocation, ToTuple(function(in...)));
      }
    }

    template <typename... Values>
    static std::tuple<Values...> ToTuple(std::tuple<Values...> values) {
      return values;
    }
    template <typename Value>
    static std::tuple<Value> ToTuple(Value value) {
      return std::tuple<Value>(std::move(value));
    }

    template <typename... Values>
    void Complete(Interface* skeleton, GDBusMethodInvocation* invocation,
                  const std::tuple<Values...>& values) const {
      const auto answer = [=, complete = complete] {
        std::apply([&](const Values&... value) { complete(skeleton, invocation, ToWire<Out>(value)...); },
                   values);
      };
      if (gate != nullptr) {
        gate->Pass(invocation, answer);
      } else {
        answer();
      }
    }

    static void Delete(gpointer data, GClosure*) { delete static_cast<BoundMethod*>(data); }
  };

  Interface* m_skeleton;
  AnswerGate* m_gate;
};

}  // namespace btservice

#endif
