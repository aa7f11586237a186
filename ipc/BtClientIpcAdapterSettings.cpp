// The parameter segment: filled from the persisted settings by whoever comes first, read by GetCapability.

#include <cstdint>
#include <cstring>
#include <string>

#include <mwp/MWPLibConfigs.h>
#include <mwp/MWPPersistService.h>

#define MWP_LOG_SOURCE "ipc/BtClientIpcAdapter"
#include <mwp/MWPLog.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/UsableSegment.h"

namespace {

constexpr int kPersistCategory = 8;  // Bluetooth

/// How one persisted setting gets into the parameter segment. The texts are the ones that log analysis knows,
/// including the name of a method that does not issue them and the scan setting under the download's text.
struct Setting {
  int key;
  std::size_t offset;
  const char* defaultPath;  ///< in the configuration store; null: the default is 0
  const char* failureText;  ///< takes the default if there is a defaultPath
  const char* valueText;
};

constexpr Setting kSettings[] = {
    {309, PARAMETER_POWER_SWITCH, "/setting/default_bluetooth_power",
     "MWPBtClient::GetCapability Failed ! Set Default bt power:%d ",
     "LoadPersistDataToSharemenory powerSwitch:%d"},
    {303, PARAMETER_AUTO_CONNECT, "/setting/default_bluetooth_auto_connect",
     "MWPBtClient::GetCapability Failed ! Set Default auto connect:%d ",
     "LoadPersistDataToSharemenory auto connect:%d"},
    {304, PARAMETER_AUTO_ANSWER, "/setting/default_bluetooth_auto_answer",
     "MWPBtClient::GetCapability Failed ! Set Default auto answer:%d ",
     "LoadPersistDataToSharemenory auto anwser:%d"},
    {305, PARAMETER_AUTO_REJECT_INCALL, nullptr,
     "MWPBtClient::GetCapability Get BTC_AUTO_REJECT_INCALL Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory auto reject call:%d"},
    {306, PARAMETER_AUTO_DOWNLOAD, "/setting/default_bluetooth_auto_download",
     "MWPBtClient::GetCapability Failed ! Set Default auto download all:%d ",
     "LoadPersistDataToSharemenory auto download:%d"},
    {307, PARAMETER_ENABLE_SCAN, nullptr,
     "MWPBtClient::GetCapability Get BTC_ENABLE_SCAN Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory auto download:%d"},
    {308, PARAMETER_AUTO_ANSWER_PAIR, nullptr,
     "MWPBtClient::GetCapability Get BTC_AUTO_ANSWER_PAIR Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory auto answer pair:%d"},
    {310, PARAMETER_LOCAL_RING, nullptr,
     "MWPBtClient::GetCapability Get PERSIST_BLUETOOTH_ENABLE_LOCAL_RING Failed ! Reset vlaue 0",
     "LoadPersistDataToSharemenory local ringtone :%d"},
};

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
  switch (capability) {
    case MWPBtType::BT_CAP_POWER_SWITCH:
      offset = PARAMETER_POWER_SWITCH;
      return true;
    case MWPBtType::BT_CAP_AUTO_CONNECT:
      offset = PARAMETER_AUTO_CONNECT;
      return true;
    case MWPBtType::BT_CAP_AUTO_ANSWER:
      offset = PARAMETER_AUTO_ANSWER;
      return true;
    case MWPBtType::BT_CAP_AUTO_REJECT_INCALL:
      offset = PARAMETER_AUTO_REJECT_INCALL;
      return true;
    case MWPBtType::BT_CAP_AUTO_DOWNLOAD:
      offset = PARAMETER_AUTO_DOWNLOAD;
      return true;
    case MWPBtType::BT_CAP_ENABLE_SCAN:
      offset = PARAMETER_ENABLE_SCAN;
      return true;
    case MWPBtType::BT_CAP_LOCAL_RING:
      offset = PARAMETER_LOCAL_RING;
      return true;
    case MWPBtType::BT_CAP_PARAMETER_LOADED:
      offset = PARAMETER_LOADED;
      return true;
    default:
      return false;
  }
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
  for (const Setting& setting : kSettings) {
    const MWPLogSite site{MWP_LOG_SOURCE, __func__, __LINE__};
    if (MWP_GetA7PersistService()->ReadInt(kPersistCategory, setting.key, &value) != 0) {
      value = setting.defaultPath != nullptr ? GetLibConfigs()->GetInt(setting.defaultPath) : 0;
      MWPLogWrite(site, MWP_LOG_ERROR, setting.failureText, value);
      MWP_GetA7PersistService()->WriteInt(kPersistCategory, setting.key, value, 0);
    }
    MWPLogWrite(site, MWP_LOG_DEBUG, setting.valueText, value);
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
