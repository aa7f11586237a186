// The persisted settings and the parameter segment.

#include <cstdint>
#include <cstring>
#include <fstream>
#include <map>

#include <gtest/gtest.h>

#include <mwp/MWPPersistService.h>

#include "ipc/BtClientIpcAdapter.h"
#include "ipc/ShareMemory/ShareMemory.h"
#include "support/LogCapture.h"
#include "support/Segments.h"
#include "support/TemporaryDirectory.h"

namespace {

constexpr int kCategory = 8;
constexpr int kKeys[] = {309, 303, 304, 305, 306, 307, 308, 310};

std::int32_t Word(std::size_t offset) {
  const auto bytes = bttest::ReadSegment(SH_BT_PARAMETER, offset, 4);
  std::int32_t word;
  std::memcpy(&word, bytes.data(), sizeof word);
  return word;
}

void SetWord(std::size_t offset, std::int32_t word) {
  std::vector<unsigned char> bytes(4);
  std::memcpy(bytes.data(), &word, sizeof word);
  bttest::WriteSegment(SH_BT_PARAMETER, offset, bytes);
}

class Settings : public testing::Test {
 protected:
  Settings() {
    std::ofstream(m_directory.Path() / "config.ini")
        << "[setting]\ndefault_bluetooth_power=11\ndefault_bluetooth_auto_connect=12\n"
           "default_bluetooth_auto_answer=13\ndefault_bluetooth_auto_download=14\n";
    setenv("MWP_CONFIG_FILE", (m_directory.Path() / "config.ini").c_str(), 1);
    setenv("MWP_PERSIST_FILE", (m_directory.Path() / "persist.ini").c_str(), 1);
  }

  static void Persist(const std::map<int, int>& values) {
    for (const auto& [key, value] : values) {
      ASSERT_EQ(MWP_GetA7PersistService()->WriteInt(kCategory, key, value, 0), 0);
    }
  }

  static std::map<int, int> Persisted() {
    std::map<int, int> values;
    for (const int key : kKeys) {
      int value = 0;
      if (MWP_GetA7PersistService()->ReadInt(kCategory, key, &value) == 0) {
        values[key] = value;
      }
    }
    return values;
  }

  bttest::TemporaryDirectory m_directory;
};

TEST_F(Settings, AreCopiedFromThePersistenceServiceToTheirOffsets) {
  Persist({{309, 1}, {308, 2}, {303, 3}, {305, 4}, {304, 5}, {306, 6}, {307, 7}, {310, 8}});
  BtClientIpcAdapter adapter;
  EXPECT_EQ(Word(0), 1);
  EXPECT_EQ(Word(4), 2);
  EXPECT_EQ(Word(8), 3);
  EXPECT_EQ(Word(12), 4);
  EXPECT_EQ(Word(16), 5);
  EXPECT_EQ(Word(20), 6);
  EXPECT_EQ(Word(24), 0);
  EXPECT_EQ(Word(28), 7);
  EXPECT_EQ(Word(32), 8);
  EXPECT_EQ(Word(36), 1);
}

TEST_F(Settings, OfAnEmptyStoreAreTheDefaultsAndAllEightAreWrittenBack) {
  BtClientIpcAdapter adapter;
  EXPECT_EQ(Word(0), 11);
  EXPECT_EQ(Word(8), 12);
  EXPECT_EQ(Word(16), 13);
  EXPECT_EQ(Word(20), 14);
  for (const std::size_t offset : {4, 12, 28, 32}) {
    EXPECT_EQ(Word(offset), 0) << offset;
  }
  const std::map<int, int> expected{{303, 12}, {304, 13}, {305, 0},  {306, 14},
                                    {307, 0},  {308, 0},  {309, 11}, {310, 0}};
  EXPECT_EQ(Persisted(), expected);
}

TEST_F(Settings, OfASegmentThatIsLoadedAreLeftAloneAndNoPersistenceCallIsMade) {
  bttest::CreateSegment(SH_BT_PARAMETER, 40);
  SetWord(0, 77);
  SetWord(36, 1);
  bttest::LogCapture log;
  BtClientIpcAdapter adapter;
  EXPECT_EQ(Word(0), 77);
  EXPECT_EQ(Word(8), 0);
  EXPECT_TRUE(Persisted().empty());
  EXPECT_TRUE(log.OfFunction("LoadPersistDataToSharemenory").empty());
}

std::vector<std::pair<int, std::string>> LevelsAndTexts(const std::vector<bttest::LogRecord>& records) {
  std::vector<std::pair<int, std::string>> lines;
  for (const bttest::LogRecord& record : records) {
    EXPECT_EQ(record.file, "ipc/BtClientIpcAdapter");
    lines.emplace_back(record.level, record.message);
  }
  return lines;
}

TEST_F(Settings, LogEveryValueInTheirOrder) {
  Persist({{309, 1}, {308, 2}, {303, 3}, {305, 4}, {304, 5}, {306, 6}, {307, 7}, {310, 8}});
  bttest::LogCapture log;
  BtClientIpcAdapter adapter;
  const std::vector<std::pair<int, std::string>> expected{
      {20, "LoadPersistDataToSharemenory powerSwitch:1"},
      {20, "LoadPersistDataToSharemenory auto connect:3"},
      {20, "LoadPersistDataToSharemenory auto anwser:5"},
      {20, "LoadPersistDataToSharemenory auto reject call:4"},
      {20, "LoadPersistDataToSharemenory auto download:6"},
      {20, "LoadPersistDataToSharemenory auto download:7"},
      {20, "LoadPersistDataToSharemenory auto answer pair:2"},
      {20, "LoadPersistDataToSharemenory local ringtone :8"},
  };
  EXPECT_EQ(LevelsAndTexts(log.OfFunction("LoadPersistDataToSharemenory")), expected);
}

TEST_F(Settings, LogEveryValueThatCouldNotBeRead) {
  bttest::LogCapture log;
  BtClientIpcAdapter adapter;
  const std::vector<std::pair<int, std::string>> expected{
      {100, "MWPBtClient::GetCapability Failed ! Set Default bt power:11 "},
      {20, "LoadPersistDataToSharemenory powerSwitch:11"},
      {100, "MWPBtClient::GetCapability Failed ! Set Default auto connect:12 "},
      {20, "LoadPersistDataToSharemenory auto connect:12"},
      {100, "MWPBtClient::GetCapability Failed ! Set Default auto answer:13 "},
      {20, "LoadPersistDataToSharemenory auto anwser:13"},
      {100, "MWPBtClient::GetCapability Get BTC_AUTO_REJECT_INCALL Failed ! Reset vlaue 0"},
      {20, "LoadPersistDataToSharemenory auto reject call:0"},
      {100, "MWPBtClient::GetCapability Failed ! Set Default auto download all:14 "},
      {20, "LoadPersistDataToSharemenory auto download:14"},
      {100, "MWPBtClient::GetCapability Get BTC_ENABLE_SCAN Failed ! Reset vlaue 0"},
      {20, "LoadPersistDataToSharemenory auto download:0"},
      {100, "MWPBtClient::GetCapability Get BTC_AUTO_ANSWER_PAIR Failed ! Reset vlaue 0"},
      {20, "LoadPersistDataToSharemenory auto answer pair:0"},
      {100, "MWPBtClient::GetCapability Get PERSIST_BLUETOOTH_ENABLE_LOCAL_RING Failed ! Reset vlaue 0"},
      {20, "LoadPersistDataToSharemenory local ringtone :0"},
  };
  EXPECT_EQ(LevelsAndTexts(log.OfFunction("LoadPersistDataToSharemenory")), expected);
}

TEST_F(Settings, CapabilitiesAreReadFromTheirWordsAndOthersAreZero) {
  BtClientIpcAdapter adapter;
  for (std::size_t offset = 0; offset < 36; offset += 4) {
    SetWord(offset, 100 + static_cast<int>(offset));
  }
  const std::map<int, int> expected{{0, 100},  {1, 108}, {2, 116}, {3, 112}, {4, 0},
                                    {5, 0},    {6, 0},   {7, 120}, {8, 0},   {9, 128},
                                    {10, 132}, {11, 1},  {12, 0},  {255, 0}, {-1, 0}};
  for (const auto& [capability, value] : expected) {
    bttest::LogCapture log;
    EXPECT_EQ(adapter.GetCapability(static_cast<MWPBtType::Capability>(capability)), value) << capability;
    ASSERT_EQ(log.Records().size(), 1u);
    const bttest::LogRecord line = log.Records()[0];
    EXPECT_EQ(line.file, "ipc/BtClientIpcAdapter");
    EXPECT_EQ(line.function, "GetCapability");
    EXPECT_EQ(line.level, 20);
    EXPECT_EQ(line.message, "BtClientIpcAdapter::GetCapability eBtCapability:" + std::to_string(capability) +
                                " bRet:" + std::to_string(value) + " ");
  }
}

TEST_F(Settings, CapabilityWithoutTheSegmentIsZeroAndLogged) {
  BtClientIpcAdapter adapter;
  ShareMemory::DestroyShareMemory(SH_BT_PARAMETER);
  bttest::LogCapture log;
  EXPECT_EQ(adapter.GetCapability(MWPBtType::BT_CAP_POWER_SWITCH), 0);
  const std::vector<bttest::LogRecord> records = log.Records();
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0].level, 100);
  EXPECT_EQ(records[0].message,
            "BtClientIpcAdapter::GetCapability ShareMemory::GetShareMemory( SH_BT_PARAMETER ) Failed !!!");
}

}  // namespace
