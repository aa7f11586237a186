#ifndef PROTOCOL_SETTINGS_H
#define PROTOCOL_SETTINGS_H

#include <optional>

#include <bluetooth/MWPBtType.h>

#include "protocol/Segments.h"

/// Bluetooth's category in the persistence service.
constexpr int kSettingsCategory = 8;

/// A setting: the persistence service keeps it, and its word in SH_BT_PARAMETER is what clients read.
struct SettingEntry {
  const char* name;                                 ///< for people
  int key;                                          ///< in the persistence service
  ParameterOffset offset;                           ///< of its word
  const char* defaultPath;                          ///< in the configuration store; null: the default is 0
  std::optional<MWPBtType::Capability> capability;  ///< that requests and events call it by, if any
};

/// All settings, in the order in which a client loads them.
constexpr SettingEntry kSettings[] = {
    {"power switch", 309, PARAMETER_POWER_SWITCH, "/setting/default_bluetooth_power",
     MWPBtType::BT_CAP_POWER_SWITCH},
    {"auto connect", 303, PARAMETER_AUTO_CONNECT, "/setting/default_bluetooth_auto_connect",
     MWPBtType::BT_CAP_AUTO_CONNECT},
    {"auto answer", 304, PARAMETER_AUTO_ANSWER, "/setting/default_bluetooth_auto_answer",
     MWPBtType::BT_CAP_AUTO_ANSWER},
    {"auto reject call", 305, PARAMETER_AUTO_REJECT_INCALL, nullptr, MWPBtType::BT_CAP_AUTO_REJECT_INCALL},
    {"auto download", 306, PARAMETER_AUTO_DOWNLOAD, "/setting/default_bluetooth_auto_download",
     MWPBtType::BT_CAP_AUTO_DOWNLOAD},
    {"enable scan", 307, PARAMETER_ENABLE_SCAN, nullptr, MWPBtType::BT_CAP_ENABLE_SCAN},
    {"auto answer pair", 308, PARAMETER_AUTO_ANSWER_PAIR, nullptr, std::nullopt},
    {"local ring", 310, PARAMETER_LOCAL_RING, nullptr, MWPBtType::BT_CAP_LOCAL_RING},
};

#endif
