// What a caller gets when a generated function succeeds and hands out no text, or fails and hands out one. No
// service can make it do so: the functions here take the place of the library's.

#include <gtest/gtest.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/BtProxy.h"
#include "tests/support/LogCapture.h"

namespace {

const char* s_text = nullptr;
const char* s_error = nullptr;

/// As the generated functions do it; a proxy is not needed.
gboolean Answer(gchar** text, GError** error) {
  *text = g_strdup(s_text);
  if (s_error != nullptr) {
    g_set_error_literal(error, G_IO_ERROR, G_IO_ERROR_FAILED, s_error);
  }
  return s_error == nullptr;
}

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED gboolean com_zelk_linux_bluetooth_call_get_attribute_sync(ComZelkLinuxBluetooth*, guchar,
                                                                   gchar** text, guchar* result,
                                                                   GCancellable*, GError** error) {
  *result = 7;
  return Answer(text, error);
}

EXPORTED gboolean com_zelk_linux_bluetooth_call_get_remote_pair_device_name_sync(ComZelkLinuxBluetooth*,
                                                                                 const gchar*, gchar** text,
                                                                                 GCancellable*,
                                                                                 GError** error) {
  return Answer(text, error);
}

EXPORTED gboolean com_zelk_linux_bluetooth_call_get_cur_connect_dev_info_sync(ComZelkLinuxBluetooth*, guchar,
                                                                              gchar** text, guchar* result,
                                                                              GCancellable*, GError** error) {
  *result = 7;
  return Answer(text, error);
}

namespace bttest {
namespace {

class MissingTexts : public testing::Test {
 protected:
  MissingTexts() { g_BtProxy = reinterpret_cast<ComZelkLinuxBluetooth*>(this); }
  ~MissingTexts() override { g_BtProxy = nullptr; }

  LogCapture log;
  BtClientIpcAdapter adapter;
};

TEST_F(MissingTexts, OfAnAttributeIsEmptyAndZeroAndLogged) {
  log.Clear();
  std::string value = "before";
  EXPECT_EQ(adapter.GetAttribute(MWPBtType::Attribute(), value), 0);
  EXPECT_EQ(value, "");
  ASSERT_EQ(log.OfLevel(100).size(), 1u);
  EXPECT_EQ(log.OfLevel(100)[0].message, "BtClientIpcAdapter::GetAttribute Get Failed !!!");
}

TEST_F(MissingTexts, OfAnAttributeHideTheErrorOfTheCall) {
  s_error = "hidden";
  log.Clear();
  std::string value;
  EXPECT_EQ(adapter.GetAttribute(MWPBtType::Attribute(), value), 0);
  ASSERT_EQ(log.OfLevel(100).size(), 1u);
  EXPECT_EQ(log.OfLevel(100)[0].message, "BtClientIpcAdapter::GetAttribute Get Failed !!!");
}

TEST_F(MissingTexts, ATextOfAnAttributeThatComesWithAnErrorIsDeliveredAndTheErrorLogged) {
  s_text = "a text";
  s_error = "a reason";
  log.Clear();
  std::string value;
  EXPECT_EQ(adapter.GetAttribute(MWPBtType::Attribute(), value), 7);
  EXPECT_EQ(value, "a text");
  ASSERT_EQ(log.OfLevel(100).size(), 1u);
  EXPECT_EQ(log.OfLevel(100)[0].message,
            "com_zelk_linux_bluetooth_get_attribute_sync: Failed to call dbus method. Reason: a reason.");
}

TEST_F(MissingTexts, OfADeviceNameIsEmpty) {
  EXPECT_EQ(adapter.GetRemotePairDeviceName("00:00:00:00:00:00"), "");
}

TEST_F(MissingTexts, OfAConnectedDeviceIsEmptyAndTheResultIsAnswered) {
  std::string address = "before";
  EXPECT_EQ(adapter.GetCurConnectDevInfo(MWPBtType::BT_PROFILE_HFP, address), 7);
  EXPECT_EQ(address, "");
}

}  // namespace
}  // namespace bttest
