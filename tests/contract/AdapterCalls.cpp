#include "contract/AdapterCalls.h"

#include "contract/DerivedCalls.h"

namespace bttest {
namespace {

template <typename Result, typename... Params>
AdapterCall CallOf(Result (BtClientIpcAdapter::*method)(Params...)) {
  return
      [method](BtClientIpcAdapter& adapter, const In& in, Out& out) { CallWith(adapter, method, in, out); };
}

}  // namespace

const std::map<std::string, AdapterCall>& AdapterCalls() {
  // A method of the interface that the adapter does not have stops the compiler here.
#define BT_METHOD(Method) {#Method, CallOf(&BtClientIpcAdapter::Method)},
  static const std::map<std::string, AdapterCall> calls{
#include "derived/methods.inc"
  };
#undef BT_METHOD
  return calls;
}

}  // namespace bttest
