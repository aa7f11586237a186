#ifndef TESTS_ASYNC_MIRRORFIXTURE_H
#define TESTS_ASYNC_MIRRORFIXTURE_H

#include <memory>
#include <string>
#include <vector>

#include <btasync/Mirror.h>
#include <btasync/testing/FakeService.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace bttest {

using namespace btasync;

inline const Address kPhone("00:1A:7D:DA:71:13");
inline const Address kOther("00:1A:7D:DA:71:14");
constexpr unsigned kAllParts = ~0U;

inline MWPTypeDevice PairedPhone() {
  MWPTypeDevice device;
  device.strAddr = kPhone.ToText();
  device.strName = "Ada's phone";
  device.eConnectStatus = BT_CONN_CONNECTED;
  return device;
}

inline MWPTypeCallInfo OneCall(CallStatus status = BT_CALL_ACTIVE) {
  MWPTypeCallInfo info;
  info.nCallCount = 1;
  info.callSlot1.nValue1 = 1;
  info.callSlot1.nValue2 = status;
  info.callSlot1.nValue3 = 1;
  info.callSlot1.nValue5 = 7;
  info.callSlot1.strText1 = "+49170";
  info.callSlot1.strText2 = "Ben";
  info.callSlot1.strText3 = kPhone.ToText();
  return info;
}

inline MWPTypeContact Contact(int id, const std::string& name) {
  MWPTypeContact contact;
  contact.nContactId = id;
  contact.strText1 = name;
  return contact;
}

/// A service whose phone is connected, in a call and playing, and mirrors of it.
class MirrorTest : public testing::Test {
 protected:
  MirrorTest() {
    fake.WillAccept(&Service::GetBluetoothServiceStatus);
    fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
    fake.WillAnswer(&Service::GetAttribute, "Head Unit").With(BT_ATTR_LOCAL_NAME);
    fake.WillAnswer(&Service::GetAttribute, "00:1B:DC:00:00:01").With(BT_ATTR_LOCAL_ADDRESS);
    fake.WillAnswer(&Service::GetCapability, true);
    fake.WillAnswer(&Service::PairedDevices, std::vector<MWPTypeDevice>{PairedPhone()});
    fake.WillAnswer(&Service::CurrentCalls, OneCall());
    fake.WillAnswer(&Service::GetAudioIsPrivacy, true);
    fake.WillAnswer(&Service::GetPhoneConnectionState, ConnectionState{BT_CONN_CONNECTED, kPhone});
    fake.WillAnswer(&Service::GetMediaConnectionState, ConnectionState{BT_CONN_CONNECTED, kPhone});
    fake.WillAnswer(&Service::GetMusicPlayStatus, BT_MUSIC_PLAYING);
    MWPTypeMediaInfo track;
    track.title = "Low Tide";
    fake.WillAnswer(&Service::GetMediaInfo, track);
    fake.WillAnswer(&Service::GetPlayModes, std::vector<MWPTypePlayMode>{{2, 1}});
    fake.WillAnswer(&Service::GetSupportedPlayModes, std::vector<MWPTypePlayMode>{{2, 1}, {2, 2}});
    fake.WillAnswer(&Service::GetPlayPosition, PlayPosition{1000, 167000});
    fake.WillAccept(&Service::ReportPosition);
    fake.WillAnswer(&Service::Contacts, std::vector<MWPTypeContact>{Contact(1, "Ada"), Contact(2, "Ben")});
    fake.WillAnswer(&Service::FavoriteContacts, std::vector<MWPTypeContact>{Contact(2, "Ben")});
    fake.WillAnswer(&Service::CallLogs, std::vector<MWPTypeCallLog>(3));
  }

  /// A mirror whose calls are noted.
  std::unique_ptr<Mirror> Mirrored(unsigned parts) {
    return std::make_unique<Mirror>(fake, parts,
                                    [this](const State&, unsigned changed) { told.push_back(changed); });
  }
  /// One that has asked all it asks.
  std::unique_ptr<Mirror> Settled(unsigned parts) {
    auto mirror = Mirrored(parts);
    fake.Settle();
    told.clear();
    fake.ForgetRequests();
    return mirror;
  }

  FakeService fake;
  std::vector<unsigned> told;
};

}  // namespace bttest

#endif
