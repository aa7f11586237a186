#include "service/segments/ParameterSegment.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

#include <mwp/MWPLibConfigs.h>
#include <mwp/MWPPersistService.h>
#define MWP_LOG_SOURCE "service/segments/ParameterSegment"
#include <mwp/MWPLog.h>

namespace btservice {
namespace {

constexpr int kPersistCategory = 8;

/// A setting: its word, its key in the persistence service, its default (0 unless one is configured), and
/// the capability it stands behind, if any.
struct Setting {
  const char* name;
  ParameterOffset offset;
  int key;
  const char* defaultPath;
  std::optional<Capability> capability;
};

const Setting kSettings[] = {
    {"power switch", PARAMETER_POWER_SWITCH, 309, "/setting/default_bluetooth_power", BT_CAP_POWER_SWITCH},
    {"auto connect", PARAMETER_AUTO_CONNECT, 303, "/setting/default_bluetooth_auto_connect",
     BT_CAP_AUTO_CONNECT},
    {"auto answer", PARAMETER_AUTO_ANSWER, 304, "/setting/default_bluetooth_auto_answer", BT_CAP_AUTO_ANSWER},
    {"auto reject call", PARAMETER_AUTO_REJECT_INCALL, 305, nullptr, BT_CAP_AUTO_REJECT_INCALL},
    {"auto download", PARAMETER_AUTO_DOWNLOAD, 306, "/setting/default_bluetooth_auto_download",
     BT_CAP_AUTO_DOWNLOAD},
    {"enable scan", PARAMETER_ENABLE_SCAN, 307, nullptr, BT_CAP_ENABLE_SCAN},
    {"auto answer pair", PARAMETER_AUTO_ANSWER_PAIR, 308, nullptr, std::nullopt},
    {"local ring", PARAMETER_LOCAL_RING, 310, nullptr, BT_CAP_LOCAL_RING},
};

std::int32_t& Word(std::int32_t* words, ParameterOffset offset) { return words[offset / sizeof(*words)]; }

/// A missing value is repaired, so that the next start finds one.
int LoadPersisted(const Setting& setting) {
  int value = 0;
  if (MWP_GetA7PersistService()->ReadInt(kPersistCategory, setting.key, &value) != 0) {
    value = setting.defaultPath != nullptr ? GetLibConfigs()->GetInt(setting.defaultPath) : 0;
    MWP_LOG(MWP_LOG_INFO, "setting '%s' is not stored yet: it becomes %d", setting.name, value);
    MWP_GetA7PersistService()->WriteInt(kPersistCategory, setting.key, value, 0);
  }
  return value;
}

}  // namespace

SettingsData ParameterSegment::Load() {
  for (const Setting& setting : kSettings) {
    const int value = LoadPersisted(setting);
    if (setting.capability) {
      m_settings.capabilities[*setting.capability] = value;
    } else {
      m_settings.autoAnswerPair = value;
    }
  }
  Words();
  return m_settings;
}

std::int32_t* ParameterSegment::Words() {
  bool fresh = false;
  auto* const words = static_cast<std::int32_t*>(m_segments.Attach(SH_BT_PARAMETER, &fresh));
  if (words != nullptr && fresh) {
    for (const Setting& setting : kSettings) {
      Word(words, setting.offset) =
          setting.capability ? m_settings.capabilities[*setting.capability] : m_settings.autoAnswerPair;
    }
    // Last: a client that finds it set reads the settings, and one that does not fills in the same.
    std::atomic_thread_fence(std::memory_order_seq_cst);
    Word(words, PARAMETER_LOADED) = 1;
  }
  return words;
}

void ParameterSegment::OnStackEvent(const StackEvent& event) {
  const auto* const change = std::get_if<CapabilityChanged>(&event);
  if (change == nullptr) {
    return;
  }
  for (const Setting& setting : kSettings) {
    if (setting.capability != change->capability) {
      continue;
    }
    m_settings.capabilities[change->capability] = change->value;
    if (std::int32_t* const words = Words()) {
      Word(words, setting.offset) = change->value;
    }
    int stored = 0;
    const bool isStored = MWP_GetA7PersistService()->ReadInt(kPersistCategory, setting.key, &stored) == 0;
    if (!isStored || stored != change->value) {
      MWP_GetA7PersistService()->WriteInt(kPersistCategory, setting.key, change->value, 0);
    }
  }
}

}  // namespace btservice
