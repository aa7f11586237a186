#ifndef TESTS_QT_KNOWNSERVICE_H
#define TESTS_QT_KNOWNSERVICE_H

#include <string>
#include <vector>

#include <btasync/testing/FakeService.h>

namespace bttest {

inline const btasync::Address kAda("00:1A:7D:DA:71:13");
inline const btasync::Address kBen("00:1A:7D:DA:71:14");

inline MWPTypeDevice Paired(const btasync::Address& address, const std::string& name) {
  MWPTypeDevice device;
  device.strAddr = address.ToText();
  device.strName = name;
  return device;
}

inline MWPTypeContact Contact(int id, const std::string& first, const std::string& family,
                              const std::string& number) {
  MWPTypeContact contact;
  contact.nContactId = id;
  contact.strText1 = first;
  contact.strText2 = family;
  contact.listNumbers.push_back({1, {number}});
  return contact;
}

inline MWPTypeCallLog Log(int id, CallLogType type, const std::string& name) {
  MWPTypeCallLog log;
  log.nLogId = id;
  log.strText1 = name;
  log.strText2 = "110";
  log.strText5 = "17";
  log.nValue2 = type;
  return log;
}

inline MWPTypeCallSlot Slot(int id, btasync::CallStatus status, const std::string& number) {
  MWPTypeCallSlot slot;
  slot.nValue1 = id;
  slot.nValue2 = status;
  slot.nValue3 = 1;
  slot.strText1 = number;
  slot.strText2 = "Carla";
  slot.strText3 = kAda.ToText();
  return slot;
}

inline MWPTypeCallInfo CallsOf(const std::vector<MWPTypeCallSlot>& slots) {
  MWPTypeCallInfo info;
  info.nCallCount = static_cast<int>(slots.size());
  if (!slots.empty()) {
    info.callSlot1 = slots[0];
  }
  if (slots.size() > 1) {
    info.callSlot2 = slots[1];
  }
  return info;
}

/// A service in memory that answers all that a BtService asks: two paired phones, no call, music, four
/// contacts.
class KnownService : public btasync::FakeService {
 public:
  KnownService() {
    using namespace btasync;
    WillAccept(&Service::GetBluetoothServiceStatus);
    WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
    WillAnswer(&Service::GetAttribute, "Head Unit").With(BT_ATTR_LOCAL_NAME);
    WillAnswer(&Service::GetAttribute, "00:1B:DC:00:00:01").With(BT_ATTR_LOCAL_ADDRESS);
    WillAnswer(&Service::GetCapability, true);
    WillAnswer(&Service::PairedDevices,
               std::vector<MWPTypeDevice>{Paired(kAda, "Ada's phone"), Paired(kBen, "Ben's phone")});
    WillAnswer(&Service::CurrentCalls, MWPTypeCallInfo());
    WillAnswer(&Service::GetAudioIsPrivacy, false);
    WillAnswer(&Service::GetPhoneConnectionState, ConnectionState{BT_CONN_CONNECTED, kAda});
    WillAnswer(&Service::GetMediaConnectionState, ConnectionState{BT_CONN_CONNECTED, kAda});
    WillAnswer(&Service::GetMusicPlayStatus, BT_MUSIC_PLAYING);
    WillAnswer(&Service::GetMediaInfo, Track("Low Tide"));
    WillAnswer(&Service::GetPlayModes, std::vector<MWPTypePlayMode>{{2, 1}, {3, 2}});
    WillAnswer(&Service::GetSupportedPlayModes,
               std::vector<MWPTypePlayMode>{{2, 1}, {2, 2}, {2, 3}, {3, 1}, {3, 2}});
    WillAnswer(&Service::GetPlayPosition, PlayPosition{1000, 180000});
    WillAccept(&Service::ReportPosition);
    WillAnswer(&Service::Contacts, std::vector<MWPTypeContact>{
                                       Contact(1, "Ada", "Arndt", "+49170000001"),
                                       Contact(4, "Jörg", "Jäger", "+49170000004"),
                                       Contact(2, "Ben", "Baker", "+49170000002"),
                                       Contact(7, "Ärzte", "am Hafen", "+4930116117"),
                                   });
    WillAnswer(&Service::FavoriteContacts,
               std::vector<MWPTypeContact>{Contact(2, "Ben", "Baker", "+49170000002")});
    WillAnswer(&Service::CallLogs, std::vector<MWPTypeCallLog>{
                                       Log(3, CALL_LOG_MISSED, "Carla"),
                                       Log(2, CALL_LOG_OUTGOING, "Ben"),
                                       Log(1, CALL_LOG_INCOMING, "Ada"),
                                   });
  }

  static MWPTypeMediaInfo Track(const std::string& title) {
    MWPTypeMediaInfo track;
    track.title = title;
    track.artist = "The Estuaries";
    track.album = "Shoreline";
    track.duration = "167000";
    return track;
  }
};

}  // namespace bttest

#endif
