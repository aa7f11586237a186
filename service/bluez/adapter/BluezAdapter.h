#ifndef SERVICE_BLUEZ_ADAPTER_BLUEZADAPTER_H
#define SERVICE_BLUEZ_ADAPTER_BLUEZADAPTER_H

#include <memory>

#include "service/stack/AdapterControl.h"

namespace btservice::bluez {

class Attributes;
class Capabilities;
class FoundDevices;
class Power;
class Search;

/// What passes the requests for the adapter on to the parts that carry them out, which have to outlive it.
std::unique_ptr<AdapterControl> MakeBluezAdapter(Power& power, Attributes& attributes,
                                                 Capabilities& capabilities, Search& search,
                                                 FoundDevices& found);

}  // namespace btservice::bluez

#endif
