// libbtasync's reader of the lists: the inputs of the fuzz target, and many segments with some bytes changed.

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "fuzz/DecoderChecks.h"
#include "fuzz/ListInput.h"
#include "fuzz/ListPacker.h"
#include "fuzz/Records.h"

namespace {

using bttest::Bytes;
using bttest::CheckDecoder;
using bttest::GuardedMemory;
using bttest::ListInput;
using bttest::Pack;
using bttest::RandomRecords;

constexpr std::size_t kSegmentBytes = 2048;
constexpr int kSegments = 20'000;

void Write(GuardedMemory& memory, const std::vector<unsigned char>& bytes) {
  std::memset(memory.Begin(), 0, memory.Size());
  std::memcpy(memory.Begin(), bytes.data(), std::min(bytes.size(), memory.Size()));
}

TEST(Decoder, ReadsTheInputsOfTheFuzzTarget) {
  GuardedMemory memory(kSegmentBytes);
  int inputs = 0;
  for (const auto& file : std::filesystem::directory_iterator(BTTEST_LIST_CORPUS)) {
    std::ifstream stream(file.path(), std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(stream), {}};
    const auto input = ListInput::Parse(bytes.data(), bytes.size());
    ASSERT_TRUE(input) << file.path();
    Write(memory, input->Fill(memory.Size()));
    EXPECT_EQ(CheckDecoder(memory, input->Segment()), "") << file.path();
    ++inputs;
  }
  EXPECT_GT(inputs, 10);
}

/// A paired list: texts that are addresses, or nearly.
Bytes PackDevices(RandomRecords& random) {
  Bytes bytes = bttest::PackInteger(2);
  for (const char* const address : {"00:1A:7D:DA:71:13", "ff:00:7d:da:71:14"}) {
    for (int i = 0; i < 4; ++i) {
      const Bytes integer = bttest::PackInteger(random.Integer());
      bytes.insert(bytes.end(), integer.begin(), integer.end());
    }
    bytes.insert(bytes.end(), address, address + std::strlen(address) + 1);
    const std::string name = random.Text().substr(0, 300);
    bytes.insert(bytes.end(), name.begin(), name.end());
    bytes.push_back(0);
  }
  return bytes;
}

Bytes PackSample(RandomRecords& random, ShareMemID id) {
  switch (id) {
    case SH_CALL_LOG_LIST:
      return Pack(random.CallLogs(random.Below(4)));
    case SH_CALL_INFO_LIST:
      return Pack(random.CallInfo());
    case SH_PAIRED_LIST:
      return PackDevices(random);
    default:
      return Pack(random.Contacts(random.Below(4)));
  }
}

TEST(Decoder, ReadsEverythingThatIsWholeAndNothingElse) {
  GuardedMemory memory(kSegmentBytes);
  RandomRecords random(1);
  for (const ShareMemID id : {SH_CONTACT_LIST, SH_CALL_LOG_LIST, SH_CALL_INFO_LIST, SH_PAIRED_LIST}) {
    for (int i = 0; i < kSegments; ++i) {
      Bytes bytes = PackSample(random, id);
      for (int changes = random.Below(4); changes > 0; --changes) {
        bytes[static_cast<std::size_t>(random.Below(static_cast<int>(bytes.size())))] =
            static_cast<unsigned char>(random.Below(256));
      }
      if (random.Below(4) == 0) {
        bytes.resize(kSegmentBytes, 0xff);
      }
      Write(memory, bytes);
      ASSERT_EQ(CheckDecoder(memory, id), "") << "segment " << id << ": " << testing::PrintToString(bytes);
    }
  }
}

}  // namespace
