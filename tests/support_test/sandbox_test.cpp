#include <csignal>
#include <cstdlib>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/shm.h>
#include <unistd.h>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

namespace bttest {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// The sandbox is nested here in the one of this test.
std::vector<std::string> InSandbox(const std::vector<std::string>& arguments) {
  std::vector<std::string> command{BTTEST_SANDBOX};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return command;
}

/// The standard output of a shell command in the sandbox.
std::string Shell(const std::string& command, const std::string& service = "empty") {
  ChildProcess child(InSandbox({"--service", service, "sh", "-c", command}));
  EXPECT_EQ(0, child.Wait()) << child.Errors();
  return child.Output();
}

TEST(Sandbox, IsWhereTestsRun) {
  EXPECT_STREQ("1", std::getenv("BTTEST_IN_SANDBOX"));
  EXPECT_EQ(0, access("/app/bin/btservice", F_OK));
  EXPECT_EQ(nullptr, std::getenv("DBUS_SESSION_BUS_ADDRESS"));
  EXPECT_EQ(nullptr, std::getenv("DISPLAY"));
  EXPECT_THAT(std::getenv("XDG_RUNTIME_DIR"), StartsWith("/sandbox."));
  EXPECT_THAT(std::getenv("MWP_PERSIST_FILE"), StartsWith(std::getenv("XDG_STATE_HOME")));
  EXPECT_EQ(0, access(std::getenv("MWP_CONFIG_FILE"), R_OK));
}

TEST(Sandbox, ShowsTheGivenServiceReadOnly) {
  TemporaryDirectory directory;
  const std::string service = directory.Path() / "a service";
  std::ofstream(service) << "content";
  EXPECT_EQ("content", Shell("cat /app/bin/btservice", service));
  EXPECT_EQ("refused\n", Shell("(echo x >/app/bin/btservice) 2>/dev/null || echo refused", service));
  EXPECT_EQ("0\n", Shell("stat -c %s /app/bin/btservice", "empty"));
  EXPECT_EQ("missing\n", Shell("test -e /app/bin/btservice || echo missing", "none"));
}

TEST(Sandbox, HasSegmentsOfItsOwn) {
  ASSERT_EQ(0, shmget(IPC_PRIVATE, 4096, IPC_CREAT | 0600));
  // The first segment there has the identifier 0, too.
  EXPECT_EQ("Shared memory id: 0\n", Shell("ipcmk -M 1234"));
  shmid_ds data = {};
  ASSERT_EQ(0, shmctl(0, IPC_STAT, &data));
  EXPECT_EQ(4096U, data.shm_segsz);
  EXPECT_EQ(-1, shmctl(1, IPC_STAT, &data)) << "what is made inside is seen outside";
}

TEST(Sandbox, GivesBackStatusAndPassesInputOutputAndDirectory) {
  ChildProcess failing(InSandbox({"sh", "-c", "exit 42"}));
  EXPECT_EQ(42, failing.Wait());
  ChildProcess missing(InSandbox({"/no/such/program"}));
  EXPECT_EQ(127, missing.Wait());
  ChildProcess place({"sh", "-c", "cd /usr/lib && echo in | " BTTEST_SANDBOX " sh -c 'cat; pwd'"});
  EXPECT_EQ(0, place.Wait()) << place.Errors();
  EXPECT_EQ("in\n/usr/lib\n", place.Output());
}

TEST(Sandbox, SignalsReachTheCommand) {
  ChildProcess child(InSandbox({"sh", "-c", "trap 'exit 5' TERM; echo ready; while :; do sleep 0.01; done"}));
  ASSERT_TRUE(child.WaitForOutput("ready")) << child.Errors();
  child.Signal(SIGTERM);
  EXPECT_EQ(5, child.Wait());
}

TEST(Sandbox, LeavesNothingBehindEvenWhenKilled) {
  // Others use /tmp meanwhile: of what is there, only a sandbox's own.
  const auto traces = [] {
    ChildProcess look(
        {"sh", "-c", "wc -l </proc/self/mounts; ls -d /sandbox.* /app/* /tmp/sandbox.* /var/sandbox.*"});
    look.Wait();
    return look.Output();
  };
  const std::string before = traces();
  ChildProcess child(InSandbox(
      {"sh", "-c", "touch $HOME/x $TMPDIR/x $XDG_STATE_HOME/x; echo $HOME; echo ready; exec sleep 1000"}));
  ASSERT_TRUE(child.WaitForOutput("ready")) << child.Errors();
  child.Kill();
  EXPECT_EQ(before, traces());
  const std::string home = child.Output().substr(0, child.Output().find('\n'));
  EXPECT_THAT(home, StartsWith("/sandbox."));
  EXPECT_EQ(-1, access(home.c_str(), F_OK)) << home;
}

TEST(Sandbox, SaysWhatIsWrongWithItsArguments) {
  ChildProcess none(InSandbox({}));
  EXPECT_EQ(125, none.Wait());
  EXPECT_THAT(none.Errors(), HasSubstr("which command"));
  ChildProcess service(InSandbox({"--service", "/no/such/file", "true"}));
  EXPECT_EQ(125, service.Wait());
  EXPECT_THAT(service.Errors(), HasSubstr("there is no file '/no/such/file'"));
  ChildProcess option(InSandbox({"--frob", "true"}));
  EXPECT_EQ(125, option.Wait());
  EXPECT_THAT(option.Errors(), HasSubstr("unknown option '--frob'"));
}

}  // namespace
}  // namespace bttest
