// The parameter segment: filled from the persisted settings by whoever comes first, read by GetCapability.

#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>

#include <mwp/MWPLibConfigs.h>
#include <mwp/MWPPersistService.h>

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/UsableSegment.h"
#include "protocol/Settings.h"

namespace {

/// What is logged about each setting as it is loaded. The texts are the ones that log analysis knows,
/// including the name of a method that does not issue them and the scan setting under the download's text.
struct SettingTexts {
  ParameterOffset offset;
  const char* failure;  ///< takes the default if the configuration store has one
  const char* value;
};

constexpr SettingTexts kSettingTexts[] = {
    {PARAMETER_POWER_SWITCH, "MWPBtClient::GetCapability Failed ! Set Default bt power:%d ",
     "LoadPersistDataToSharemenory powerSwitch:%d"},
    {PARAMETER_AUTO_CONNECT, "MWPBtClient::GetCapability Failed ! Set Default auto connect:%d ",
     "LoadPersistDataToSharemenory auto connect:%d"},
    {PARAMETER_AUTO_ANSWER, "MWPBtClient::GetCapability Failed ! Set Default auto answer:%d ",
     "LoadPersistDataToSharemenory auto anwser:%d"},
    {PARAMETER_AUTO_REJECT_INCALL,
     "MWPBtClient::GetCapability Get BTC_AUTO_REJECT_INCALL Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory auto reject call:%d"},
    {PARAMETER_AUTO_DOWNLOAD, "MWPBtClient::GetCapability Failed ! Set Default auto download all:%d ",
     "LoadPersistDataToSharemenory auto download:%d"},
    {PARAMETER_ENABLE_SCAN, "MWPBtClient::GetCapability Get BTC_ENABLE_SCAN Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory auto download:%d"},
    {PARAMETER_AUTO_ANSWER_PAIR, "MWPBtClient::GetCapability Get BTC_AUTO_ANSWER_PAIR Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory auto answer pair:%d"},
    {PARAMETER_LOCAL_RING,
     "MWPBtClient::GetCapability Get PERSIST_BLUETOOTH_ENABLE_LOCAL_RING Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory local ringtone :%d"},
};

constexpr std::size_t kSettingCount = std::size(kSettings);

constexpr bool EverySettingHasItsTexts() {
  for (std::size_t i = 0; i < kSettingCount; ++i) {
    if (kSettings[i].offset != kSettingTexts[i].offset) {
      return false;
    }
  }
  return true;
}
static_assert(std::size(kSettingTexts) == kSettingCount, "each setting has its texts");
static_assert(EverySettingHasItsTexts(), "the texts are in the order of the settings");

int ReadParameter(const SegmentBytes& segment, std::size_t offset) {
  std::int32_t value;
  std::memcpy(&value, segment.begin + offset, sizeof value);
  return value;
}

void WriteParameter(const SegmentBytes& segment, std::size_t offset, int value) {
  const std::int32_t word = value;
  std::memcpy(segment.begin + offset, &word, sizeof word);
}

/// Where the parameter segment keeps a capability; false for a capability that it does not keep.
bool FindParameter(MWPBtType::Capability capability, std::size_t& offset) {
  if (capability == MWPBtType::BT_CAP_PARAMETER_LOADED) {
    offset = PARAMETER_LOADED;
    return true;
  }
  for (const SettingEntry& setting : kSettings) {
    if (setting.capability == capability) {
      offset = setting.offset;
      return true;
    }
  }
  return false;
}

}  // namespace

void BtClientIpcAdapter::LoadPersistDataToSharemenory() {
  const SegmentBytes segment = UsableSegment(SH_BT_PARAMETER);
  if (segment.begin == nullptr) {
    MWP_LOG(MWP_LOG_ERROR,
            "LoadPersistDataToSharemenory: SH_BT_PARAMETER is not attached, no setting is loaded");
    return;
  }
  if (ReadParameter(segment, PARAMETER_LOADED) != 0) {
    return;
  }
  // Set before anything is read, and without a lock: two processes that come at the same moment both load,
  // and write the same values.
  WriteParameter(segment, PARAMETER_LOADED, 1);

  int value = 0;
  for (std::size_t i = 0; i < kSettingCount; ++i) {
    const SettingEntry& setting = kSettings[i];
    const MWPLogSite site{MWP_LOG_SOURCE, __func__, __LINE__};
    if (MWP_GetA7PersistService()->ReadInt(kSettingsCategory, setting.key, &value) != 0) {
      value = setting.defaultPath != nullptr ? GetLibConfigs()->GetInt(setting.defaultPath) : 0;
      MWPLogWrite(site, MWP_LOG_ERROR, kSettingTexts[i].failure, value);
      MWP_GetA7PersistService()->WriteInt(kSettingsCategory, setting.key, value, 0);
    }
    MWPLogWrite(site, MWP_LOG_DEBUG, kSettingTexts[i].value, value);
    WriteParameter(segment, setting.offset, value);
  }
}

int BtClientIpcAdapter::GetCapability(MWPBtType::Capability capability) {
  const SegmentBytes segment = UsableSegment(SH_BT_PARAMETER);
  if (segment.begin == nullptr) {
    MWP_LOG(MWP_LOG_ERROR,
            "BtClientIpcAdapter::GetCapability ShareMemory::GetShareMemory( SH_BT_PARAMETER ) Failed !!!");
    return 0;
  }
  std::size_t offset = 0;
  const int value = FindParameter(capability, offset) ? ReadParameter(segment, offset) : 0;
  MWP_LOG(MWP_LOG_DEBUG, "BtClientIpcAdapter::GetCapability eBtCapability:%d bRet:%d ", capability, value);
  return value;
}
