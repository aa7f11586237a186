// Events for which there is not enough memory.

#include <string>

#include <gtest/gtest.h>

#include "contract/ShortOfMemory.h"
#include "contract/events_fixture.h"

namespace bttest {
namespace {

constexpr std::size_t kLarge = 50000;

/// Fails unless the signal is lost with one error line, and nothing else happens.
void ExpectLost(const LogCapture& log, const Receptions& receptions, const std::string& handler) {
  EXPECT_TRUE(receptions.all.empty());
  const std::vector<LogRecord> errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].file, "ipc/BtClientIpcAdapter");
  EXPECT_EQ(errors[0].function, handler);
}

TEST_F(Events, WithATextThatFindsNoMemoryAreLostWithOneErrorLineAndTheNextArrives) {
  const std::string text(kLarge, 'x');
  library.recorder.Emit("OnOperatorNameChanged", g_variant_new("(s)", text.c_str()));
  {
    const ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(library.HandleSignals());
  }
  ExpectLost(log, receptions, "CallBackOnOperatorNameChanged");
  Send("OnHangupCallChanged", g_variant_new("()"));
  ExpectOneKindHears("OnHangupCallChanged", {});
}

TEST_F(Events, WithBytesThatFindNoMemoryAreLostWithOneErrorLineAndTheNextArrives) {
  const std::string bytes(kLarge, 'x');
  GVariant* const value = g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, bytes.data(), bytes.size(), 1);
  library.recorder.Emit("OnSppReceiveBufferChanged", g_variant_new("(sv)", "a", value));
  {
    const ShortOfMemory here(kLarge);
    EXPECT_NO_THROW(library.HandleSignals());
  }
  ExpectLost(log, receptions, "CallBackOnSppReceiveBufferChanged");
  Send("OnHangupCallChanged", g_variant_new("()"));
  ExpectOneKindHears("OnHangupCallChanged", {});
}

}  // namespace
}  // namespace bttest
