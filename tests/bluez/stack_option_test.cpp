// Which stack is used: the one that --stack names, and never another in its place.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "tests/bluez/BluezTest.h"

namespace btservice {
namespace {

using bttest::ChildProcess;
using testing::HasSubstr;

TEST(StackOptionTest, TheHelpNamesTheStacksOfTheProgram) {
  ChildProcess help({kExecutable, "--help"});
  EXPECT_EQ(help.Wait(), 0);
  EXPECT_THAT(help.Output(), HasSubstr("--stack=NAME"));
#ifdef BTTEST_HAS_SIMULATION
  EXPECT_THAT(help.Output(), HasSubstr("simulation, bluez"));
  EXPECT_THAT(help.Output(), HasSubstr("Simulates the Bluetooth service"));
  EXPECT_THAT(help.Output(), HasSubstr("The stack bluez drives the first Bluetooth adapter"));
#else
  EXPECT_THAT(help.Output(), HasSubstr("bluez, the only one here"));
#endif
}

TEST(StackOptionTest, AStackThatIsNotThereIsRefused) {
  for (const char* const name : {"", "windows", "BlueZ", "\x1b[31m"}) {
    ChildProcess process({kExecutable, "--stack", name});
    EXPECT_EQ(process.Wait(), 2) << name;
    EXPECT_THAT(process.Errors(), HasSubstr("btservice: there is no stack ")) << name;
    EXPECT_EQ(process.Errors().find('\x1b'), std::string::npos);
  }
}

#ifdef BTTEST_HAS_SIMULATION
TEST(StackOptionTest, OptionsOfAnotherStackAreRefused) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--world", "empty"}, {"--speed", "2"}, {"--world-schema"}}) {
    std::vector<std::string> command{kExecutable, "--stack", "bluez"};
    command.insert(command.end(), words.begin(), words.end());
    ChildProcess process(command);
    EXPECT_EQ(process.Wait(), 2) << words[0];
    EXPECT_EQ(process.Errors(),
              "btservice: " + words[0] +
                  " is for the stack simulation, which is not used\nTry 'btservice --help'.\n");
  }
}

TEST(StackOptionTest, TheSimulationIsUsedUnlessAnotherIsNamed) {
  for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--stack", "simulation"}}) {
    RunningService service(options);
    EXPECT_EQ(service.Ask("GetAttribute", g_variant_new("(y)", BT_ATTR_STACK_VERSION)),
              "('simulated', byte 0x01)");
  }
}
#endif

TEST_F(BluezTest, TheControlsOfTheSimulationAreNotThere) {
  StartService();
  OwnedError error;
  const OwnedVariant reply(g_dbus_connection_call_sync(
      Service().Connection(), kServiceName, kControlPath, "com.zelk.linux.bluetooth.sim.Outside", "AddDevice",
      nullptr, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, error.Out()));
  EXPECT_FALSE(reply);
  ASSERT_TRUE(error);
  EXPECT_TRUE(g_error_matches(error.get(), G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD)) << error->message;
}

}  // namespace
}  // namespace btservice
