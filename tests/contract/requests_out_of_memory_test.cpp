// Answers of the service for which there is not enough memory: the request has its result, and one line says
// what is missing.

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "contract/ShortOfMemory.h"
#include "ipc/BtClientIpcAdapter.h"
#include "support/BusDaemon.h"
#include "support/LogCapture.h"
#include "support/Recorder.h"

namespace bttest {
namespace {

constexpr std::size_t kLarge = 50000;

class RequestsShortOfMemory : public testing::Test {
 protected:
  RequestsShortOfMemory() { EXPECT_TRUE(m_adapter.InitDBusConnect()); }

  /// Fails unless one error of the method says this.
  static void ExpectError(const LogCapture& log, const std::string& method, const std::string& message) {
    const std::vector<LogRecord> errors = log.OfLevel(100);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_EQ(errors[0].file, "ipc/BtClientIpcAdapter");
    EXPECT_EQ(errors[0].function, method);
    EXPECT_EQ(errors[0].message, message);
  }

  BusDaemon m_bus;
  Recorder m_recorder;
  BtClientIpcAdapter m_adapter;
};

TEST_F(RequestsShortOfMemory, ATextIsEmptyAndTheResultStays) {
  m_recorder.SetReply("GetAttribute", g_variant_new("(sy)", std::string(kLarge, 'x').c_str(), 7));
  std::string value = "before";
  LogCapture log;
  {
    const ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(EXPECT_EQ(m_adapter.GetAttribute(MWPBtType::BT_ATTR_LOCAL_NAME, value), 7));
  }
  EXPECT_EQ(value, "");
  ExpectError(log, "GetAttribute", "there is no memory for a text of the service's answer");
}

TEST_F(RequestsShortOfMemory, NoPlayModesAreAddedAndTheResultStays) {
  GVariantBuilder modes;
  g_variant_builder_init(&modes, G_VARIANT_TYPE("a(yy)"));
  for (std::size_t i = 0; i < kLarge; ++i) {
    g_variant_builder_add(&modes, "(yy)", 2, 1);
  }
  m_recorder.SetReply("GetSupportPlayMode", g_variant_new("(a(yy)b)", &modes, TRUE));
  std::vector<MWPTypePlayMode> known(1);
  LogCapture log;
  {
    const ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(EXPECT_EQ(m_adapter.GetSupportPlayMode(known), 1));
  }
  EXPECT_EQ(known.size(), 1u);
  ExpectError(log, "GetSupportPlayMode", "GetSupportPlayMode: there is no memory for 50000 play modes");
}

}  // namespace
}  // namespace bttest
