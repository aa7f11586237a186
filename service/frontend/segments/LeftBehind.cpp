#include "service/frontend/segments/LeftBehind.h"

#include <algorithm>

#include "ipc/ShareMemory/SegmentRecords.h"
#include "protocol/Address.h"
#include "service/frontend/segments/Records.h"

namespace btservice {
namespace {

constexpr int kMostCalls = 3;  ///< two, and one that waits

bool IsCall(const CallInfo& call) {
  return call.id > 0 && call.status > BT_CALL_IDLE && call.status <= BT_CALL_RESPONSE_HELD;
}

bool IsConnectedOrOnTheWay(ConnStatus status) {
  return status == BT_CONN_CONNECTED || status == BT_CONN_CONNECTING || status == BT_CONN_DISCONNECTING;
}

bool Contains(const std::vector<int>& values, int value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

}  // namespace

std::vector<int> ReadCallIds(const std::uint8_t* memory, std::size_t size) {
  SegmentReader reader(memory, memory + size);
  std::vector<int> ids;
  int count = 0;
  if (!reader.ReadInt(count) || count < 1 || count > kMostCalls) {
    return ids;
  }
  for (int number = 0; number < std::min(count, static_cast<int>(kCallSlots)); ++number) {
    MWPTypeCallSlot slot;
    if (segment::ReadRecord(reader, slot) != segment::kNoFault) {
      return ids;
    }
    const CallInfo call = CallOf(slot);
    if (!IsCall(call) || Contains(ids, call.id)) {
      return ids;
    }
    ids.push_back(call.id);
  }
  // There are more calls than slots. A new call gets the smallest number that is free.
  for (int id = 1; static_cast<int>(ids.size()) < count; ++id) {
    if (!Contains(ids, id)) {
      ids.push_back(id);
    }
  }
  return ids;
}

std::vector<std::string> ReadConnectedDevices(const std::uint8_t* memory, std::size_t size) {
  SegmentReader reader(memory, memory + size);
  std::vector<std::string> addresses;
  int count = 0;
  reader.ReadInt(count);
  for (int i = 0; i < count; ++i) {
    MWPTypeDevice device;
    if (segment::ReadRecord(reader, device) != segment::kNoFault || !IsBluetoothAddress(device.strAddr)) {
      break;
    }
    if (IsConnectedOrOnTheWay(device.eConnectStatus)) {
      addresses.push_back(device.strAddr);
    }
  }
  return addresses;
}

LeftBehind ReadLeftBehind(SegmentOwner& segments) {
  const auto memoryOf = [&](ShareMemID id) { return static_cast<const std::uint8_t*>(segments.Attach(id)); };
  LeftBehind left;
  if (const std::uint8_t* const calls = memoryOf(SH_CALL_INFO_LIST)) {
    left.callIds = ReadCallIds(calls, kSegmentCatalogue[SH_CALL_INFO_LIST].size);
  }
  if (const std::uint8_t* const paired = memoryOf(SH_PAIRED_LIST)) {
    left.connectedDevices = ReadConnectedDevices(paired, kSegmentCatalogue[SH_PAIRED_LIST].size);
  }
  return left;
}

}  // namespace btservice
