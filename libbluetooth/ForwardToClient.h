#ifndef LIBBLUETOOTH_FORWARDTOCLIENT_H
#define LIBBLUETOOTH_FORWARDTOCLIENT_H

#include "libbluetooth/MWPBtClient.h"

/// Calls the client, which is made if there is none.
template <typename Result, typename... Params, typename... Args>
Result CallClient(Result (MWPBtClient::*request)(Params...), Args&&... args) {
  return (MWPSingleton<MWPBtClient>::GetInstance()->*request)(args...);
}

/// What every facade method does: answers Result() while the library is not initialised, and otherwise what
/// the client's method answers. Out arguments are untouched in the first case, and no client is made.
template <typename Result, typename... Params, typename... Args>
Result ForwardToClient(Result (MWPBtClient::*request)(Params...), Args&&... args) {
  return MWPBtClient::m_bInitClient != 0 ? CallClient(request, args...) : Result();
}

#endif
