#ifndef TESTS_SYSTEM_PRESET_REQUESTS_H
#define TESTS_SYSTEM_PRESET_REQUESTS_H

#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ipc/BtClientIpcAdapter.h"
#include "support/LogCapture.h"

namespace bttest {

/// Runs request and expects that it answers preset and logs reason in one error line, and nothing else.
template <typename Request, typename Answer>
void ExpectPreset(const char* function, const std::string& reason, const Answer& preset, Request request) {
  LogCapture log;
  EXPECT_EQ(request(), preset) << function;
  const auto errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u) << function;
  EXPECT_EQ(errors[0].function, function);
  EXPECT_NE(errors[0].message.find(reason), std::string::npos) << errors[0];
  EXPECT_TRUE(log.Complaints().empty()) << log.Complaints().front();
}

/// Expects of one request of each kind, by what it answers, that it fails for this reason and answers what it
/// has to then.
inline void ExpectPresets(const std::string& reason) {
  BtClientIpcAdapter adapter;
  const std::string address = "11:22:33:44:55:66";
  ExpectPreset("SetPower", reason, 0, [&] { return adapter.SetPower(1); });
  ExpectPreset("EnableProfile", reason, 0, [&] { return adapter.EnableProfile(), 0; });
  ExpectPreset("GetRemotePairDeviceName", reason, std::string(),
               [&] { return adapter.GetRemotePairDeviceName(address); });
  ExpectPreset("GetPairDeviceInfoByAddress", reason, std::string(),
               [&] { return adapter.GetPairDeviceInfoByAddress(address).strAddr; });
  ExpectPreset("GetSupportPlayMode", reason, 0u, [&] {
    std::vector<MWPTypePlayMode> modes;
    adapter.GetSupportPlayMode(modes);
    return modes.size();
  });
  ExpectPreset("SetDeviceOOBLinkKey", reason, 1, [&] {
    return adapter.SetDeviceOOBLinkKey(address, {1, 2});
  });
  char buffer[] = "data";
  ExpectPreset("SppSendBuffer", reason, 1, [&] { return adapter.SppSendBuffer(address, buffer, 4); });
  std::list<MWPTypeContact> contacts(1);
  ExpectPreset("GetContactList", reason, 1, [&] { return adapter.GetContactList(contacts); });
  std::list<MWPTypeCallLog> logs(1);
  ExpectPreset("GetCallLogList", reason, 1, [&] { return adapter.GetCallLogList(CALL_LOG_ALL, logs); });
  EXPECT_EQ(contacts.size() + logs.size(), 2u) << "the lists stay as they were";
}

}  // namespace bttest

#endif
