// The inputs of the fuzz target `lists` in real segments, read by requests.

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>

#include "fuzz/Expectation.h"
#include "fuzz/ListInput.h"
#include "fuzz/Records.h"
#include "tests/async/ListsFixture.h"

namespace {

using namespace btasync;
using bttest::ListInput;
using bttest::Wait;

class ListCorpus : public bttest::ListsFixture {
 protected:
  template <typename List, typename Expected>
  void ExpectList(const Answer<List>& answer, const Expected& expected) {
    if (expected.isFaulty) {
      ASSERT_TRUE(answer.Failed());
      EXPECT_EQ(answer.Why().reason, Reason::Malformed);
      return;
    }
    ASSERT_TRUE(answer) << answer.Why().detail;
    EXPECT_TRUE(std::equal(answer->begin(), answer->end(), expected.delivery.begin(), expected.delivery.end(),
                           [](const auto& one, const auto& other) { return bttest::IsSame(one, other); }));
  }
};

TEST_F(ListCorpus, IsReadAsFarAsItIsWhole) {
  int inputs = 0;
  for (const auto& file : std::filesystem::directory_iterator(BTTEST_LIST_CORPUS)) {
    SCOPED_TRACE(file.path());
    std::ifstream stream(file.path(), std::ios::binary);
    const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(stream), {}};
    const auto input = ListInput::Parse(bytes.data(), bytes.size());
    ASSERT_TRUE(input);
    const ShareMemID id = input->Segment();
    const std::vector<unsigned char> segment = input->Fill(kSegmentCatalogue[id].size);
    bttest::WriteSegment(id, 0, segment);
    bttest::GuardedMemory memory(segment.size());
    std::copy(segment.begin(), segment.end(), memory.Begin());
    switch (id) {
      case SH_CONTACT_LIST:
      case SH_FAV_CONTACT_LIST: {
        const auto expected = bttest::ExpectContacts(memory);
        SetCount(static_cast<int>(expected.delivery.size()));
        ExpectList(id == SH_CONTACT_LIST ? Wait(service.Contacts()) : Wait(service.FavoriteContacts()),
                   expected);
        break;
      }
      case SH_CALL_LOG_LIST: {
        const auto expected = bttest::ExpectCallLogs(memory);
        SetCount(static_cast<int>(expected.delivery.size()));
        ExpectList(Wait(service.CallLogs(CALL_LOG_ALL)), expected);
        break;
      }
      case SH_PAIRED_LIST:
        ExpectList(Wait(service.PairedDevices()), bttest::ExpectDevices(memory));
        break;
      default: {
        const auto expected = bttest::ExpectCallInfo(memory, MWPTypeCallInfo());
        const auto calls = Wait(service.CurrentCalls());
        EXPECT_EQ(calls.Failed(), expected.isFaulty || expected.delivery.nCallCount < 0);
        EXPECT_TRUE(calls.Failed() || bttest::IsSame(*calls, expected.delivery));
      }
    }
    ++inputs;
  }
  EXPECT_GT(inputs, 10);
}

}  // namespace
