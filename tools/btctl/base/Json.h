#ifndef TOOLS_BTCTL_BASE_JSON_H
#define TOOLS_BTCTL_BASE_JSON_H

#include <nlohmann/json.hpp>

#include "btctl/base/JsonFwd.h"

#endif
