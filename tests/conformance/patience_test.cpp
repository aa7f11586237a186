// How long the suite waits for a service that is slower than the simulation, or faster.

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>

#include "tests/conformance/Patience.h"

namespace conformance {
namespace {

TEST(PatienceTest, IsAlsoThatForTheEndOfTheService) {
  // SIGTERM does nothing to it, so it ends by itself, later than this patience allows.
  setenv("BTCONFORMANCE_PATIENCE", "0.001", 1);
  bttest::ChildProcess slow({"sh", "-c", "trap '' TERM; echo ready; exec sleep 10"});
  ASSERT_TRUE(slow.WaitForOutput("ready"));
  EXPECT_EQ(EndInGoodOrder(slow), std::nullopt);
  EXPECT_TRUE(slow.IsAlive());
  slow.Kill();
}

}  // namespace
}  // namespace conformance
