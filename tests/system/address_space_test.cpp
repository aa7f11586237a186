// What one round of create and destroy leaves of the address space: the memory of all eight segments, which
// stay attached while their addresses are forgotten.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "protocol/Segments.h"
#include "system/fixtures.h"

namespace bttest {
namespace {

struct Mapped {
  long long segments = 0;  ///< mappings of System V segments
  long long bytes = 0;     ///< of their address space
};

Mapped MappedSegments() {
  Mapped mapped;
  std::ifstream file("/proc/self/maps");
  for (std::string line; std::getline(file, line);) {
    if (line.find("/SYSV") != std::string::npos) {
      unsigned long long begin = 0;
      unsigned long long end = 0;
      std::sscanf(line.c_str(), "%llx-%llx", &begin, &end);
      ++mapped.segments;
      mapped.bytes += static_cast<long long>(end - begin);
    }
  }
  return mapped;
}

TEST(AddressSpace, OfARoundOfCreateAndDestroyStaysTakenByAllEightSegments) {
  MakeDummySegments();
  BusDaemon bus;
  Recorder service;
  const long long page = sysconf(_SC_PAGESIZE);
  long long ofARound = 0;
  for (const SegmentEntry& segment : kSegmentCatalogue) {
    ofARound += (static_cast<long long>(segment.size) + page - 1) / page * page;
  }
  if (page == 4096) {
    EXPECT_EQ(ofARound, 3231744) << "the 3.1 MiB that the documents state";
  }
  constexpr int kRounds = 3;
  for (int round = 1; round <= kRounds; ++round) {
    ASSERT_EQ(MWP_CreateBlueTooth(), 1);
    MWP_DestroyBlueTooth();
    const Mapped mapped = MappedSegments();
    // Neighbours in the address space that are the same segment are one line.
    EXPECT_LE(mapped.segments, 8 * round);
    EXPECT_EQ(mapped.bytes, ofARound * round);
  }
}

}  // namespace
}  // namespace bttest
