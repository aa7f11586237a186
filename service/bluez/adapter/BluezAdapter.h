#ifndef SERVICE_BLUEZ_ADAPTER_BLUEZADAPTER_H
#define SERVICE_BLUEZ_ADAPTER_BLUEZADAPTER_H

#include <memory>

#include "service/stack/AdapterControl.h"

namespace btservice::bluez {

class Attributes;
class Capabilities;
class Power;

/// What passes the requests for the adapter on to the parts that carry them out, which have to outlive it.
std::unique_ptr<AdapterControl> MakeBluezAdapter(Power& power, Attributes& attributes,
                                                 Capabilities& capabilities);

}  // namespace btservice::bluez

#endif
