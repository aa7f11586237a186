// What a service finds of one before it, in segments that may hold anything.

#include <cstring>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "service/frontend/segments/LeftBehind.h"
#include "service/frontend/segments/Records.h"

namespace btservice {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kSize = 2048;

CallInfo MakeCall(int id) {
  CallInfo call;
  call.id = id;
  call.status = BT_CALL_HELD;
  call.number = "112";
  return call;
}

DeviceInfo MakeDevice(const std::string& address, ConnStatus status) {
  DeviceInfo device;
  device.address = address;
  device.name = "Phone";
  device.status = status;
  return device;
}

/// As if it lay in a segment of its own, with nothing behind it that may be read.
std::vector<int> CallIdsIn(Bytes contents, std::size_t size = kSize) {
  contents.resize(size);
  contents.shrink_to_fit();
  return ReadCallIds(contents.data(), contents.size());
}

std::vector<std::string> DevicesIn(Bytes contents, std::size_t size = kSize) {
  contents.resize(size);
  contents.shrink_to_fit();
  return ReadConnectedDevices(contents.data(), contents.size());
}

TEST(LeftBehindTest, NothingIsLeftInFreshSegments) {
  EXPECT_THAT(CallIdsIn({}), IsEmpty());
  EXPECT_THAT(DevicesIn({}), IsEmpty());
}

TEST(LeftBehindTest, TheCallsOfTheTable) {
  EXPECT_THAT(CallIdsIn(PackCallTable({MakeCall(2)}, kSize).contents), ElementsAre(2));
  EXPECT_THAT(CallIdsIn(PackCallTable({MakeCall(2), MakeCall(1)}, kSize).contents), ElementsAre(2, 1));
  EXPECT_THAT(CallIdsIn(PackCallTable({}, kSize).contents), IsEmpty());
}

TEST(LeftBehindTest, TheCallThatHasNoSlot) {
  const std::vector<CallInfo> calls{MakeCall(3), MakeCall(1), MakeCall(2)};
  EXPECT_THAT(CallIdsIn(PackCallTable(calls, kSize).contents), ElementsAre(3, 1, 2));
}

TEST(LeftBehindTest, ATableWithoutSenseHasNoCalls) {
  Bytes contents = PackCallTable({MakeCall(1), MakeCall(2)}, kSize).contents;
  for (const std::int32_t count : {-1, 4, 1 << 30}) {
    std::memcpy(contents.data(), &count, sizeof(count));
    EXPECT_THAT(CallIdsIn(contents), IsEmpty()) << count;
  }
  CallInfo odd = MakeCall(-5);
  EXPECT_THAT(CallIdsIn(PackCallTable({odd}, kSize).contents), IsEmpty());
  odd = MakeCall(1);
  odd.status = static_cast<CallStatus>(77);
  EXPECT_THAT(CallIdsIn(PackCallTable({odd}, kSize).contents), IsEmpty());
  EXPECT_THAT(CallIdsIn(PackCallTable({MakeCall(1), MakeCall(1)}, kSize).contents), ElementsAre(1))
      << "two calls of one number are not believed";
}

TEST(LeftBehindTest, TheDevicesThatWereConnectedOrOnTheWay) {
  const std::vector<DeviceInfo> devices{MakeDevice("00:00:00:00:00:01", BT_CONN_CONNECTED),
                                        MakeDevice("00:00:00:00:00:02", BT_CONN_DISCONNECTED),
                                        MakeDevice("00:00:00:00:00:03", BT_CONN_CONNECTING),
                                        MakeDevice("00:00:00:00:00:04", BT_CONN_LINK_LOST),
                                        MakeDevice("00:00:00:00:00:05", BT_CONN_DISCONNECTING)};
  EXPECT_THAT(DevicesIn(PackList(devices, kSize).Contents()),
              ElementsAre("00:00:00:00:00:01", "00:00:00:00:00:03", "00:00:00:00:00:05"));
}

TEST(LeftBehindTest, AListThatPromisesMoreThanItHolds) {
  const std::vector<DeviceInfo> devices{MakeDevice("00:00:00:00:00:01", BT_CONN_CONNECTED)};
  Bytes contents = PackList(devices, kSize).Contents();
  const std::int32_t count = 1 << 30;
  std::memcpy(contents.data(), &count, sizeof(count));
  EXPECT_THAT(DevicesIn(contents), ElementsAre("00:00:00:00:00:01"));
  EXPECT_THAT(DevicesIn(contents, contents.size() - 1), IsEmpty()) << "a name without an end";
}

TEST(LeftBehindTest, GarbageIsReadWithoutHarm) {
  std::mt19937 random(1);
  for (int round = 0; round < 2000; ++round) {
    Bytes garbage(1 + random() % kSize);
    for (std::uint8_t& byte : garbage) {
      byte = static_cast<std::uint8_t>(random() % (round % 2 == 0 ? 256 : 3));
    }
    const Bytes contents = garbage;
    EXPECT_LE(CallIdsIn(contents, contents.size()).size(), 3U);
    EXPECT_THAT(DevicesIn(contents, contents.size()), IsEmpty());
  }
}

}  // namespace
}  // namespace btservice
