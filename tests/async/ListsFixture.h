#ifndef TESTS_ASYNC_LISTSFIXTURE_H
#define TESTS_ASYNC_LISTSFIXTURE_H

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/SegmentItems.h"
#include "tests/async/AsyncFixture.h"

namespace bttest {

// The contents of list segments.

inline SegmentItems& PutContact(SegmentItems& items, int id, const std::string& name) {
  return items.Int(id).Text(name).Text("Arndt").Int(1).Int(1).Int(1).Text("+4917" + std::to_string(id));
}

/// So many contacts, with the ids 1 and up.
inline SegmentItems ContactItems(int count, const std::string& name = "Ada") {
  SegmentItems items;
  items.Int(count);
  for (int id = 1; id <= count; ++id) {
    PutContact(items, id, name);
  }
  return items;
}

/// A log with an entry of each of these types, with the ids 10 and up.
inline SegmentItems CallLogItems(const std::vector<int>& types) {
  SegmentItems items;
  items.Int(static_cast<int>(types.size()));
  int id = 10;
  for (const int type : types) {
    items.Int(id++).Int(-1).Int(type);
    items.Text("Ada").Text("+4917").Text("2026-05-31").Text("18:05:00").Text("0");
  }
  return items;
}

inline SegmentItems DeviceItems(const std::vector<std::string>& addresses) {
  SegmentItems items;
  items.Int(static_cast<int>(addresses.size()));
  for (const std::string& address : addresses) {
    items.Int(MWPBtType::BT_PROFILE_HFP).Int(MWPBtType::BT_PROFILE_HFP_A2DP);
    items.Int(MWPBtType::BT_CONN_CONNECTED).Int(MWPBtType::BT_SUPPORT_ANDROID_AUTO);
    items.Text(address).Text("Ada's phone");
  }
  return items;
}

/// One call that takes so many seconds by now.
inline SegmentItems CallItems(int seconds) {
  SegmentItems items;
  items.Int(1);
  items.Int(1).Int(MWPBtType::BT_CALL_ACTIVE).Int(1).Int(0).Int(seconds);
  items.Text("+4917").Text("Ada").Text("00:1A:7D:DA:71:13");
  items.Int(0).Int(0).Int(0).Int(0).Int(0).Text("").Text("").Text("");
  return items;
}

/// A service that publishes whatever lies in the segments.
class ListsFixture : public testing::Test {
 protected:
  ListsFixture() {
    for (const SegmentEntry& entry : kSegmentCatalogue) {
      CreateSegment(entry.id, entry.size);
    }
    for (const char* const method : {"GetContactList", "GetFavContactList", "GetCallLogList"}) {
      recorder.SetReply(method, g_variant_new("(b)", TRUE));
    }
  }

  /// What the service answers when it is asked how many records it has.
  void SetCount(int count) {
    recorder.SetReply("GetContactCount", g_variant_new("(i)", count));
    recorder.SetReply("GetCallLogCount", g_variant_new("(i)", count));
  }

  /// Runs the loop until the service has got a call; the calls up to it are then in seen.
  bool WaitForCall(const std::string& call) {
    return RunUntil([&] {
      for (const std::string& text : recorder.TakeCallTexts()) {
        seen.push_back(text);
        if (text == call) {
          return true;
        }
      }
      return false;
    });
  }

  BusDaemon bus;
  Recorder recorder;
  btasync::Service service;
  std::vector<std::string> seen;
};

}  // namespace bttest

#endif
