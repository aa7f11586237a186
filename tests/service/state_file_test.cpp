#include <deque>
#include <filesystem>
#include <fstream>
#include <optional>
#include <utility>

#include "service/files/InputFile.h"
#include "service/files/Limits.h"
#include "service/state/StateFile.h"
#include "support/LogCapture.h"
#include "support/TemporaryDirectory.h"
#include "tests/service/model_fixture.h"

namespace btservice {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class StateFileTest : public ModelTest {
 protected:
  /// As a service does that starts.
  static void RestoreFrom(StateFile& file, World& world) {
    if (const std::optional<KeptState> kept = file.Load()) {
      Restore(*kept, world);
    }
  }
  std::string Path() const { return directory.Path().string() + "/deep/state.json"; }

  /// Another start of the service in the same world.
  std::vector<std::string> PairedAfterRestart(World again = BuiltInWorld()) {
    StateFile file(Path());
    RestoreFrom(file, again);
    ManualScheduler clock;
    SimulatedStack next(clock, again);
    std::vector<std::string> addresses;
    for (const DeviceInfo& device : next.Devices().PairedDevices()) {
      addresses.push_back(device.address);
    }
    return addresses;
  }
  void PairByKey(const std::string& address) {
    ASSERT_TRUE(Stack().Devices().SetOobLinkKey(address, Bytes(16)));
    Pass(world.delays.oobKey);
  }

  bttest::TemporaryDirectory directory;
};

TEST_F(StateFileTest, PairedDevicesAndTheirOrderSurvive) {
  StateFile file(Path());
  file.Follow(Stack());
  PowerOn();
  PairByKey(kAccessory);
  PairByKey(kSmartphone);
  EXPECT_THAT(PairedAfterRestart(), ElementsAre(kSmartphone, kAccessory));
  Stack().Devices().MovePairing(kAccessory, 0);
  EXPECT_THAT(PairedAfterRestart(), ElementsAre(kAccessory, kSmartphone));
  Stack().Devices().DeletePairings();
  Pass(world.delays.deletePairing);
  EXPECT_THAT(PairedAfterRestart(), IsEmpty());
}

TEST_F(StateFileTest, AttributesSurvive) {
  StateFile file(Path());
  file.Follow(Stack());
  Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Änne's \"car\"");
  Stack().Adapter().SetAttribute(BT_ATTR_PIN_CODE, "4711");
  World again = BuiltInWorld();
  StateFile next(Path());
  RestoreFrom(next, again);
  EXPECT_EQ(again.adapter.name, "Änne's \"car\"");
  EXPECT_EQ(again.adapter.pin, "4711");
}

TEST_F(StateFileTest, TheFileDecidesWhoIsPaired) {
  {
    StateFile file(Path());
    file.Follow(Stack());
    Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Car");
  }
  World again = BuiltInWorld();
  again.devices[0].paired = true;
  EXPECT_THAT(PairedAfterRestart(again), IsEmpty());
}

TEST_F(StateFileTest, ADeviceThatHasLeftTheWorldStaysPaired) {
  StateFile file(Path());
  file.Follow(Stack());
  PowerOn();
  PairByKey(kSmartphone);
  World again;
  EXPECT_THAT(PairedAfterRestart(again), ElementsAre(kSmartphone));
  StateFile next(Path());
  RestoreFrom(next, again);
  EXPECT_EQ(again.devices[0].name, "Ada's phone");
  EXPECT_FALSE(again.devices[0].inRange);
}

TEST_F(StateFileTest, WithoutAFileTheWorldStaysAsItIs) {
  World again = BuiltInWorld();
  again.devices[0].paired = true;
  EXPECT_THAT(PairedAfterRestart(again), ElementsAre(kSmartphone));
}

TEST_F(StateFileTest, WithoutAPathNothingIsKept) {
  StateFile file("");
  RestoreFrom(file, world);
  file.Follow(Stack());
  Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Car");
  EXPECT_TRUE(std::filesystem::is_empty(directory.Path()));
}

TEST_F(StateFileTest, NoPairingIsForgottenInAWorldWhoseAdapterRemembersFewer) {
  {
    StateFile file(Path());
    file.Follow(Stack());
    PowerOn();
    PairByKey(kAccessory);
    PairByKey(kSmartphone);
    world.devices.clear();
    world.adapter.pairedDevices = 1;
    StateFile again(Path());
    RestoreFrom(again, world);
  }
  ManualScheduler clock;
  SimulatedStack next(clock, world);
  StateFile kept(Path());
  kept.Follow(next);
  next.Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Car");
  EXPECT_THAT(PairedAfterRestart(), ElementsAre(kSmartphone, kAccessory));
}

TEST_F(StateFileTest, ALinkToTheFileStaysALink) {
  std::filesystem::create_directory(directory.Path() / "deep");
  std::filesystem::create_symlink("../elsewhere.json", Path());
  std::ofstream(directory.Path() / "elsewhere.json") << R"({"format": 1,
            "attributes": {"name": "n", "pin": "1", "classOfDevice": "340408", "downloadFolder": "/"},
            "paired": []})";
  StateFile file(Path());
  RestoreFrom(file, world);
  file.Follow(Stack());
  Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Car");
  EXPECT_TRUE(std::filesystem::is_symlink(Path()));
  EXPECT_THAT(ReadFile(directory.Path() / "elsewhere.json", kMostJsonBytes), HasSubstr("\"Car\""));
}

/// A start with a file that cannot be used: nothing is paired, the file stays, and the log says why.
class UnusableStateFileTest : public StateFileTest {
 protected:
  UnusableStateFileTest() { std::filesystem::create_directories(directory.Path() / "deep"); }

  std::string ProblemAtStart() {
    bttest::LogCapture capture;
    StateFile& file = m_files.emplace_back(Path());
    World again = BuiltInWorld();
    again.devices[0].paired = true;
    RestoreFrom(file, again);
    EXPECT_EQ(again.adapter.name, "Head Unit");
    EXPECT_EQ(again.devices.size(), 3U);
    EXPECT_FALSE(again.devices[0].paired);
    file.Follow(Stack());
    Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Car " + std::to_string(++m_starts));
    const auto errors = capture.OfLevel(100);
    EXPECT_EQ(errors.size(), 1U);
    return errors.empty() ? ""
                          : errors[0].message.substr(0, errors[0].message.find(';')).substr(Path().size());
  }

 private:
  int m_starts = 0;
  std::deque<StateFile> m_files;  ///< the stack reports to all of them for as long as it lives
};

TEST_F(UnusableStateFileTest, AFileWithoutSenseIsLeftAsItIs) {
  const std::string attributes =
      R"("attributes": {"name": "n", "pin": "1", "classOfDevice": "340408", "downloadFolder": "/"})";
  const std::pair<std::string, std::string> cases[] = {
      {"nonsense", ":1: this is not JSON: 'no'"},
      {"{}", ":1: format: is missing"},
      {"[1]", ":1: expected an object, got a list"},
      {R"({"format": 2, "attributes": {}, "paired": []})",
       ":1: format: expected a whole number from 1 to 1, got 2"},
      {R"({"format": 1, "attributes": {"name": 3}, "paired": []})",
       ":1: attributes.name: expected a text, got 3"},
      {R"({"format": 1, )" + attributes + R"(, "paired": [{"address": "x", "name": "y"}]})",
       ":1: paired[0].address: expected a Bluetooth address such as 00:1A:7D:DA:71:13, got 'x'"},
      {R"({"format": 1, )" + attributes +
           R"(, "paired": [{"address": "00:1A:7D:DA:71:13", "name": "y"}, )"
           R"({"address": "00:1a:7d:da:71:13", "name": "z"}]})",
       ":1: paired[1].address: expected one of its own, got that of paired[0]"},
      {R"({"format": 1, )" + attributes + R"(, "paired": [], "more": 1})",
       ":1: more: there is no such member"},
  };
  for (const auto& [text, problem] : cases) {
    std::ofstream(Path()) << text;
    EXPECT_EQ(ProblemAtStart(), problem);
    EXPECT_EQ(ReadFile(Path(), kMostJsonBytes), text);
  }
}

TEST_F(UnusableStateFileTest, WhatIsNoFileIsLeftAsItIs) {
  std::filesystem::create_directory(Path());
  EXPECT_EQ(ProblemAtStart(), ": is a directory, not a file");
  EXPECT_TRUE(std::filesystem::is_directory(Path()));
}

TEST_F(UnusableStateFileTest, ALinkThatLeadsNowhereNearAFileIsLeftAsItIs) {
  std::filesystem::create_symlink(Path(), Path());
  EXPECT_THAT(ProblemAtStart(), HasSubstr(": cannot be read: "));
  EXPECT_TRUE(std::filesystem::is_symlink(Path()));
}

TEST_F(StateFileTest, AFileThatCannotBeWrittenIsReported) {
  std::ofstream(directory.Path().string() + "/deep") << "in the way";
  bttest::LogCapture capture;
  StateFile file(Path());
  file.Follow(Stack());
  Stack().Adapter().SetAttribute(BT_ATTR_LOCAL_NAME, "Car");
  ASSERT_EQ(capture.OfLevel(100).size(), 1U);
  EXPECT_THAT(capture.OfLevel(100)[0].message, HasSubstr("cannot be written"));
}

TEST_F(StateFileTest, WhatIsNotKeptDoesNotTouchTheFile) {
  StateFile file(Path());
  file.Follow(Stack());
  PowerOn();
  PairByKey(kAccessory);
  const auto written = std::filesystem::last_write_time(Path());
  Stack().Devices().Connect(kAccessory, BT_PROFILE_SPP, false);
  Pass(std::chrono::seconds(5));
  EXPECT_EQ(std::filesystem::last_write_time(Path()), written);
}

}  // namespace
}  // namespace btservice
