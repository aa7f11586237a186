#include "service/frontend/segments/LeftBehind.h"

#include <algorithm>

#include "ipc/ShareMemory/SegmentReader.h"
#include "protocol/Address.h"
#include "service/stack/StackTypes.h"

namespace btservice {
namespace {

constexpr int kCallSlots = 2;
constexpr int kMostCalls = 3;  ///< two, and one that waits

bool ReadInts(SegmentReader& reader, std::initializer_list<int*> values) {
  return std::all_of(values.begin(), values.end(), [&](int* value) { return reader.ReadInt(*value); });
}

bool SkipTexts(SegmentReader& reader, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (!reader.ReadString(text)) {
      return false;
    }
  }
  return true;
}

bool IsCall(int id, int status) { return id > 0 && status > BT_CALL_IDLE && status <= BT_CALL_RESPONSE_HELD; }

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
  for (int slot = 0; slot < std::min(count, kCallSlots); ++slot) {
    int id = 0;
    int status = 0;
    int other = 0;
    if (!ReadInts(reader, {&id, &status, &other, &other, &other}) || !IsCall(id, status) ||
        Contains(ids, id) || !SkipTexts(reader, 3)) {
      return ids;
    }
    ids.push_back(id);
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
    int status = 0;
    int other = 0;
    std::string address;
    if (!ReadInts(reader, {&other, &other, &status, &other}) || !reader.ReadString(address) ||
        !IsBluetoothAddress(address) || !SkipTexts(reader, 1)) {
      break;
    }
    if (status == BT_CONN_CONNECTED || status == BT_CONN_CONNECTING || status == BT_CONN_DISCONNECTING) {
      addresses.push_back(address);
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
