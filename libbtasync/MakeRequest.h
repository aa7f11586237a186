#ifndef LIBBTASYNC_MAKEREQUEST_H
#define LIBBTASYNC_MAKEREQUEST_H

#include <btasync/Service.h>

#include "libbtasync/Backend.h"
#include "libbtasync/Wire.h"

namespace btasync::wire {

/// A request that the service accepts or refuses.
template <typename Method, typename... Values>
Request<> Ask(const Service& service, const Values&... values) {
  return {Prepare<Method>(service.End(), values...), &Order<Method>};
}

/// A request for one value.
template <typename T, typename Method, typename... Values>
Request<T> AskFor(const Service& service, const Values&... values) {
  return {Prepare<Method>(service.End(), values...), &Question<Method, T>};
}

/// A request for a value, whose answer also says whether there is one.
template <typename T, typename Method, typename... Values>
Request<T> AskForChecked(const Service& service, const Values&... values) {
  return {Prepare<Method>(service.End(), values...), &CheckedQuestion<Method, T>};
}

}  // namespace btasync::wire

#endif
