// The configured defaults, and the one error line for each way in which there is none.

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mwp/MWPLibConfigs.h>
#include <mwp/MWPLog.h>

#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryDirectory.h"
#include "unit/platform_files.h"

namespace {

using platform_test::WriteFile;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class PlatformConfigs : public ::testing::Test {
 protected:
  PlatformConfigs() { setenv("MWP_CONFIG_FILE", file.c_str(), 1); }
  ~PlatformConfigs() override { unsetenv("MWP_CONFIG_FILE"); }

  /// Expects 0 and one error line that names file, path and reason.
  void ExpectNoValue(const std::string& path, const std::string& reason) {
    EXPECT_EQ(GetLibConfigs()->GetInt(path), 0);
    const std::vector<bttest::LogRecord> records = log.Records();
    log.Clear();
    ASSERT_EQ(records.size(), 1u) << path;
    EXPECT_EQ(records[0].level, MWP_LOG_ERROR);
    EXPECT_EQ(records[0].file, "platform/MWPLibConfigs");
    EXPECT_THAT(records[0].message, AllOf(HasSubstr(file), HasSubstr("\"" + path + "\""), HasSubstr(reason)));
  }

  bttest::TemporaryDirectory directory;
  const std::string file = directory.Path() / "defaults.ini";
  bttest::LogCapture log;
};

TEST_F(PlatformConfigs, TheShippedDefaultsSwitchAllOnButAutomaticAnswer) {
  setenv("MWP_CONFIG_FILE", PLATFORM_DEFAULTS_FILE, 1);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/default_bluetooth_power"), 1);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/default_bluetooth_auto_connect"), 1);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/default_bluetooth_auto_answer"), 0);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/default_bluetooth_auto_download"), 1);
  EXPECT_TRUE(log.Records().empty());
}

TEST_F(PlatformConfigs, WithoutTheEnvironmentTheDefaultsLieWhereTheLibraryLies) {
  if (!std::filesystem::exists(PLATFORM_BUILT_DEFAULTS)) {
    GTEST_SKIP() << "configured for a tree that does not fit into the build directory";
  }
  // Found when the library was loaded, whatever directory the process is in now.
  std::filesystem::current_path("/");
  setenv("MWP_CONFIG_FILE", "", 1);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/default_bluetooth_power"), 1);
  unsetenv("MWP_CONFIG_FILE");
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/default_bluetooth_power"), 1);
  EXPECT_TRUE(log.Records().empty());
}

TEST_F(PlatformConfigs, AFileOfTheUserGoesBeforeTheInstalledOne) {
  setenv("XDG_CONFIG_HOME", (directory.Path() / "config").c_str(), 1);
  unsetenv("MWP_CONFIG_FILE");
  std::filesystem::create_directories(directory.Path() / "config/libbt");
  WriteFile(directory.Path() / "config/libbt/defaults.ini", "[setting]\nvolume=7\n");
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/volume"), 7);
  WriteFile(file, "[setting]\nvolume=8\n");
  setenv("MWP_CONFIG_FILE", file.c_str(), 1);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/volume"), 8);
  EXPECT_TRUE(log.Records().empty());
}

TEST_F(PlatformConfigs, APathIsAGroupAndAKey) {
  WriteFile(file, "[setting]\nvolume=-12\n[setting/deep]\nvolume=3\n");
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/volume"), -12);
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/deep/volume"), 3);
  EXPECT_TRUE(log.Records().empty());
}

TEST_F(PlatformConfigs, AChangedFileIsSeenAtTheNextUse) {
  WriteFile(file, "[setting]\nvolume=1\n");
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/volume"), 1);
  WriteFile(file, "[setting]\nvolume=2\n");
  EXPECT_EQ(GetLibConfigs()->GetInt("/setting/volume"), 2);
}

TEST_F(PlatformConfigs, AMissingFileIsReported) { ExpectNoValue("/setting/volume", "No such file"); }

TEST_F(PlatformConfigs, AMissingGroupOrKeyIsReported) {
  WriteFile(file, "[setting]\nvolume=1\n");
  ExpectNoValue("/other/volume", "group");
  ExpectNoValue("/setting/brightness", "key");
}

TEST_F(PlatformConfigs, AValueThatIsNoNumberIsReported) {
  WriteFile(file, "[setting]\nvolume=loud\n");
  ExpectNoValue("/setting/volume", "cannot be interpreted");
}

TEST_F(PlatformConfigs, ABrokenFileIsReported) {
  WriteFile(file, "[setting\nvolume=1\n");
  ExpectNoValue("/setting/volume", "not a key-value pair");
}

TEST_F(PlatformConfigs, APathOfAnotherFormIsReported) {
  WriteFile(file, "[setting]\nvolume=1\n");
  for (const char* path : {"", "/", "//", "volume", "/volume", "setting/volume", "/setting/", "//volume"}) {
    ExpectNoValue(path, "a path looks like /group/key");
  }
}

TEST_F(PlatformConfigs, ALibraryThatCannotSayWhereItLiesHasNoDefaultsAndReportsThat) {
  if (!std::filesystem::exists(PLATFORM_BUILT_DEFAULTS)) {
    GTEST_SKIP() << "configured for a tree that does not fit into the build directory";
  }
  const auto run = [this](const char* failing) {
    bttest::ChildProcess program({PLATFORM_PLACE_PROGRAM}, {{"PLATFORM_FAILING", failing},
                                                            {"MWP_CONFIG_FILE", std::nullopt},
                                                            {"XDG_CONFIG_HOME", directory.Path().string()}});
    EXPECT_EQ(program.Wait(), 0);
    return program.Output() + program.Errors();
  };
  EXPECT_EQ(run("nothing"), "1\n");
  for (const char* failing : {"dladdr", "name", "realpath"}) {
    EXPECT_THAT(run(failing), AllOf(StartsWith("0\n"), HasSubstr("no value for"))) << failing;
  }
}

}  // namespace
