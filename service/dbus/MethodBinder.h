#ifndef SERVICE_DBUS_METHODBINDER_H
#define SERVICE_DBUS_METHODBINDER_H

#include <tuple>
#include <type_traits>
#include <utility>

#include <bt_dbus.h>

#include "service/dbus/WireValue.h"

namespace btservice {

template <typename...>
struct Types {};

/// A method of the interface: the signal by which the skeleton hands a call over, the function that answers
/// it, and the wire types of both, as the generated binding declares them.
template <typename In, typename Out>
struct Method;

template <typename... In, typename... Out>
struct Method<Types<In...>, Types<Out...>> {
  const char* signal;
  void (*complete)(ComZelkLinuxBluetooth*, GDBusMethodInvocation*, Out...);
};

template <typename... In, typename... Out>
constexpr Method<Types<In...>, Types<Out...>> MakeMethod(
    const char* signal,
    gboolean (*ComZelkLinuxBluetoothIface::*)(ComZelkLinuxBluetooth*, GDBusMethodInvocation*, In...),
    void (*complete)(ComZelkLinuxBluetooth*, GDBusMethodInvocation*, Out...)) {
  return {signal, complete};
}

#define BT_METHOD(stem)                                                              \
  btservice::MakeMethod("handle-" #stem, &ComZelkLinuxBluetoothIface::handle_##stem, \
                        com_zelk_linux_bluetooth_complete_##stem)

/// Has the calls of methods answered. What is bound must live as long as the skeleton.
class MethodBinder {
 public:
  explicit MethodBinder(ComZelkLinuxBluetooth* skeleton) : m_skeleton(skeleton) {}

  /// By a request of the stack that takes the arguments as they come.
  template <typename In, typename Out, typename Object, typename Result, typename Class, typename... Params>
  void Bind(const Method<In, Out>& method, Object& object, Result (Class::*request)(Params...)) {
    BindMember(method, object, request, Types<Params...>());
  }
  template <typename In, typename Out, typename Object, typename Result, typename Class, typename... Params>
  void Bind(const Method<In, Out>& method, Object& object, Result (Class::*request)(Params...) const) {
    BindMember(method, object, request, Types<Params...>());
  }

  /// By a function that takes the wire's types and returns the answer: nothing, a value, or a tuple.
  template <typename... In, typename... Out, typename Function>
  void Bind(const Method<Types<In...>, Types<Out...>>& method, Function answer) {
    using Bound = BoundMethod<Function, Types<In...>, Types<Out...>>;
    g_signal_connect_data(m_skeleton, method.signal, G_CALLBACK(&Bound::OnCall),
                          new Bound{std::move(answer), method.complete}, &Bound::Delete,
                          static_cast<GConnectFlags>(0));
  }

 private:
  template <typename Function, typename In, typename Out>
  struct BoundMethod;

  template <typename... In, typename Out, typename Object, typename Request, typename... Params>
  void BindMember(const Method<Types<In...>, Out>& method, Object& object, Request request,
                  Types<Params...>) {
    Bind(method,
         [&object, request](In... in) { return (object.*request)(FromWire<std::decay_t<Params>>(in)...); });
  }

  ComZelkLinuxBluetooth* m_skeleton;
};

template <typename Function, typename... In, typename... Out>
struct MethodBinder::BoundMethod<Function, Types<In...>, Types<Out...>> {
  Function answer;
  void (*complete)(ComZelkLinuxBluetooth*, GDBusMethodInvocation*, Out...);

  static gboolean OnCall(ComZelkLinuxBluetooth* skeleton, GDBusMethodInvocation* invocation, In... in,
                         gpointer data) {
    const auto* const self = static_cast<BoundMethod*>(data);
    using Result = decltype(self->answer(in...));
    if constexpr (std::is_void_v<Result>) {
      self->answer(in...);
      self->complete(skeleton, invocation);
    } else {
      self->Complete(skeleton, invocation, self->answer(in...));
    }
    return TRUE;
  }

  template <typename... Values>
  void Complete(ComZelkLinuxBluetooth* skeleton, GDBusMethodInvocation* invocation,
                const std::tuple<Values...>& values) const {
    std::apply([&](const Values&... value) { complete(skeleton, invocation, ToWire<Out>(value)...); },
               values);
  }
  template <typename Value>
  void Complete(ComZelkLinuxBluetooth* skeleton, GDBusMethodInvocation* invocation,
                const Value& value) const {
    Complete(skeleton, invocation, std::tuple<Value>(value));
  }

  static void Delete(gpointer data, GClosure*) { delete static_cast<BoundMethod*>(data); }
};

}  // namespace btservice

#endif
