#include "service/frontend/segments/ParameterSegment.h"

#include <atomic>
#include <cstdint>
#include <string>

#include <mwp/MWPLibConfigs.h>
#include <mwp/MWPPersistService.h>
#define MWP_LOG_SOURCE "service/frontend/segments/ParameterSegment"
#include <mwp/MWPLog.h>

#include "protocol/Settings.h"

namespace btservice {
namespace {

std::int32_t& Word(std::int32_t* words, ParameterOffset offset) { return words[offset / sizeof(*words)]; }

/// A missing value is repaired, so that the next start finds one.
int LoadPersisted(const SettingEntry& setting) {
  int value = 0;
  if (MWP_GetA7PersistService()->ReadInt(kSettingsCategory, setting.key, &value) != 0) {
    value = setting.defaultPath != nullptr ? GetLibConfigs()->GetInt(setting.defaultPath) : 0;
    MWP_LOG(MWP_LOG_INFO, "setting '%s' is not stored yet: it becomes %d", setting.name, value);
    MWP_GetA7PersistService()->WriteInt(kSettingsCategory, setting.key, value, 0);
  }
  return value;
}

}  // namespace

SettingsData ParameterSegment::Load() {
  for (const SettingEntry& setting : kSettings) {
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
    for (const SettingEntry& setting : kSettings) {
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
  for (const SettingEntry& setting : kSettings) {
    if (setting.capability != change->capability) {
      continue;
    }
    m_settings.capabilities[change->capability] = change->value;
    if (std::int32_t* const words = Words()) {
      Word(words, setting.offset) = change->value;
    }
    int stored = 0;
    const bool isStored = MWP_GetA7PersistService()->ReadInt(kSettingsCategory, setting.key, &stored) == 0;
    if (!isStored || stored != change->value) {
      MWP_GetA7PersistService()->WriteInt(kSettingsCategory, setting.key, change->value, 0);
    }
  }
}

}  // namespace btservice
