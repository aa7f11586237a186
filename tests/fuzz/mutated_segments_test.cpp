// A million segments that a service should not write: random ones, and sound ones with a few bytes changed or
// cut. Whatever they hold, what was whole is delivered and one error says that something was not; a read
// outside of the segment would end the test. The four parts are independent, so that they can run side by
// side.

#include <algorithm>

#include <gtest/gtest.h>

#include "fuzz/ListChecks.h"
#include "fuzz/ListPacker.h"
#include "fuzz/Records.h"

namespace {

using bttest::Bytes;
using bttest::ListWorld;
using bttest::Pack;
using bttest::RandomRecords;

// Together a million. The large segments are tried mostly with ones behind the mutation, where a corrupt
// count ends the reading soon: in zeros, as they are in life, it can stand for a hundred thousand empty
// records.
#ifdef BTTEST_UNDER_EMULATOR
constexpr int kShare = 20;  // It is some twenty times as slow.
#else
constexpr int kShare = 1;
#endif
constexpr int kContactSegmentsInZeros = 500 / kShare;  // of each of the two kinds
constexpr int kContactSegments = 99'500 / kShare;
constexpr int kCallLogSegments = 400'000 / kShare;
constexpr int kCallInfoSegments = 400'000 / kShare;

constexpr unsigned char kZeros = 0;
constexpr unsigned char kOnes = 0xff;
constexpr int kSmallSample = 4;  // records in a segment that is mutated
constexpr int kSamples = 500;    // sound segments that the others are made of
constexpr int kMaxRandomBytes = 64;

class Mutator {
 public:
  explicit Mutator(unsigned seed) : m_random(seed) {}

  /// Random bytes, behind a count that is small as a rule: nearly all others are just too large.
  Bytes Noise() {
    Bytes bytes = bttest::PackInteger(Often() ? Below(kSmallSample) : m_random.Integer());
    const int size = Below(kMaxRandomBytes);
    for (int i = 0; i < size; ++i) {
      bytes.push_back(Byte());
    }
    return bytes;
  }

  /// One to four changes: a byte, a bit, an integer, a byte less, a byte more, an end cut off.
  Bytes Mutate(Bytes bytes) {
    for (int changes = 1 + Below(4); changes > 0; --changes) {
      Change(bytes);
    }
    return bytes;
  }

  int Below(int limit) { return m_random.Below(limit); }
  bool Often() { return Below(20) != 0; }

 private:
  unsigned char Byte() { return static_cast<unsigned char>(Below(256)); }

  void Change(Bytes& bytes) {
    if (bytes.size() < sizeof(int)) {
      bytes.push_back(Byte());
      return;
    }
    // The count at the begin is changed seldom: after that, little else is looked at.
    const int first = Often() && bytes.size() > sizeof(int) ? static_cast<int>(sizeof(int)) : 0;
    const int place = first + Below(static_cast<int>(bytes.size()) - first);
    const auto at = bytes.begin() + place;
    switch (Below(6)) {
      case 0:
        *at = Byte();
        break;
      case 1:
        *at = static_cast<unsigned char>(*at ^ (1u << Below(8)));
        break;
      case 2: {
        const Bytes integer = bttest::PackInteger(m_random.Integer());
        std::copy_n(integer.begin(), std::min<std::ptrdiff_t>(4, bytes.end() - at), at);
        break;
      }
      case 3:
        bytes.erase(at);
        break;
      case 4:
        bytes.insert(at, Byte());
        break;
      default:
        bytes.erase(at, bytes.end());
    }
  }

  RandomRecords m_random;
};

/// Calls check after each of so many segments made of the samples, at one end of the segment or the other,
/// with the filler in the rest.
template <typename Check>
void TryMutations(ListWorld& world, ShareMemID id, int segments, unsigned char filler,
                  const std::vector<Bytes>& samples, Check check) {
  Mutator mutator(static_cast<unsigned>(id) + filler);
  for (int i = 0; i < segments; ++i) {
    const Bytes& sample = samples[static_cast<std::size_t>(mutator.Below(static_cast<int>(samples.size())))];
    const Bytes mutated = mutator.Below(4) == 0 ? mutator.Noise() : mutator.Mutate(sample);
    if (mutator.Often()) {
      world.Write(id, mutated, {}, filler);
    } else {
      world.Write(id, bttest::PackInteger(kSmallSample), mutated, filler);
    }
    const std::string wrong = check();
    ASSERT_EQ(wrong, "") << "segment " << i << " with filler " << int{filler} << ": "
                         << testing::PrintToString(mutated);
  }
}

template <typename MakeSample>
std::vector<Bytes> MakeSamples(MakeSample makeSample) {
  std::vector<Bytes> samples;
  samples.reserve(kSamples);
  for (int i = 0; i < kSamples; ++i) {
    samples.push_back(makeSample());
  }
  return samples;
}

void TryMutatedContacts(ShareMemID id) {
  ListWorld world;
  RandomRecords random(static_cast<unsigned>(id));
  const auto samples = MakeSamples([&] { return Pack(random.Contacts(1 + random.Below(kSmallSample))); });
  std::list<MWPTypeContact> contacts;
  const auto check = [&] { return CheckContacts(world, id, contacts); };
  TryMutations(world, id, kContactSegmentsInZeros, kZeros, samples, check);
  TryMutations(world, id, kContactSegments, kOnes, samples, check);
}

TEST(MutatedSegments, OfContactsDeliverWhatIsWhole) { TryMutatedContacts(SH_CONTACT_LIST); }

TEST(MutatedSegments, OfFavouriteContactsDeliverWhatIsWhole) { TryMutatedContacts(SH_FAV_CONTACT_LIST); }

TEST(MutatedSegments, OfCallLogsDeliverWhatIsWhole) {
  ListWorld world;
  RandomRecords random(1);
  const auto samples = MakeSamples([&] { return Pack(random.CallLogs(1 + random.Below(kSmallSample))); });
  for (const unsigned char filler : {kZeros, kOnes}) {
    TryMutations(world, SH_CALL_LOG_LIST, kCallLogSegments / 2, filler, samples, [&] {
      std::list<MWPTypeCallLog> logs = random.CallLogs(random.Below(2));
      return CheckCallLogs(world, logs);
    });
  }
}

TEST(MutatedSegments, OfCurrentCallsDeliverTheSlotsThatAreWhole) {
  ListWorld world;
  RandomRecords random(1);
  const auto samples = MakeSamples([&] { return Pack(random.CallInfo()); });
  MWPTypeCallInfo info;
  for (const unsigned char filler : {kZeros, kOnes}) {
    TryMutations(world, SH_CALL_INFO_LIST, kCallInfoSegments / 2, filler, samples,
                 [&] { return CheckCallInfo(world, info); });
  }
}

}  // namespace
