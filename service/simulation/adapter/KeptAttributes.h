#ifndef SERVICE_SIMULATION_ADAPTER_KEPTATTRIBUTES_H
#define SERVICE_SIMULATION_ADAPTER_KEPTATTRIBUTES_H

#include <string>

#include "service/simulation/world/World.h"

namespace btservice {

/// An attribute that is kept over a restart, and the member of the adapter's data that it begins with.
struct KeptAttribute {
  Attribute attribute;
  std::string AdapterData::*member;
};

/// All of them.
constexpr KeptAttribute kKeptAttributes[] = {
    {BT_ATTR_LOCAL_NAME, &AdapterData::name},
    {BT_ATTR_PIN_CODE, &AdapterData::pin},
    {BT_ATTR_CLASS_OF_DEVICE, &AdapterData::classOfDevice},
    {BT_ATTR_DOWNLOAD_FOLDER, &AdapterData::downloadFolder},
};

}  // namespace btservice

#endif
