#ifndef SERVICE_SIMULATION_WORLD_WORLD_H
#define SERVICE_SIMULATION_WORLD_WORLD_H

#include <ctime>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "service/simulation/world/Delays.h"
#include "service/stack/AdapterRules.h"
#include "service/stack/StackStart.h"
#include "service/stack/StackTypes.h"

namespace btservice {

// What the simulated world is made of at the beginning: plain data, all of it with defaults.

/// A track of a device's music. The uid is what the device calls it, unique in the device.
struct TrackData {
  std::string uid;
  std::string title;
  std::string artist;
  std::string album;
  std::string genre;
  Milliseconds length{0};
};

/// A folder of a device's music, with all that is in it. The one at the top needs neither uid nor name.
struct FolderData {
  std::string uid;
  std::string name;
  std::vector<FolderData> folders;
  std::vector<TrackData> tracks;
};

/// A message that a phone has. The handle is its number there, in hexadecimal digits.
struct MessageData {
  std::string handle;
  std::string sender;
  std::string text;
};

/// How somebody that is called from here behaves.
enum class CalledParty { ANSWERS, BUSY, NO_ANSWER };

/// What a phone has beside music: its network, calls, phone book and messages.
struct PhoneData {
  std::string ownNumber;
  std::string networkOperator;
  int signal = 4;   ///< bars, from 0 to 5
  int battery = 5;  ///< bars, from 0 to 5
  bool roaming = false;
  CodecMode codec = BT_CODEC_MSBC;
  CalledParty calledParty = CalledParty::ANSWERS;
  Milliseconds answersAfter{3000};
  bool sharesPhoneBook = true;  ///< its owner lets it be downloaded
  std::vector<Contact> contacts;
  std::vector<Contact> simContacts;
  std::vector<CallLogEntry> callLogs;
  std::vector<MessageData> messages;
};

/// What a serial accessory answers: the reply to a text that is listed, the same bytes to any other.
struct SerialData {
  std::map<std::string, std::string> script;
};

/// A device of the world, as it is before anything has happened.
struct DeviceData {
  std::string address;
  std::string name;
  SupportType support = BT_SUPPORT_NONE;
  std::vector<ProfileId> profiles;
  std::set<ProfileId> refusedProfiles;  ///< supported, but connecting them fails
  PairRequestState pairing = BT_PAIR_REQUEST_CONFIRMATION;
  std::string pin;             ///< PIN or passkey of the device, where its way of pairing has one
  bool acceptsPairing = true;  ///< what the person at the device answers
  bool inRange = true;
  bool paired = false;
  PhoneData phone;
  FolderData music;
  SerialData serial;
};

/// The head unit's own adapter.
struct AdapterData {
  std::string address = "00:1B:DC:00:00:01";
  std::string name = "Head Unit";
  std::string pin = kFirstPin;
  std::string stackVersion = "simulated";
  std::string classOfDevice = "340408";
  std::string downloadFolder = kFirstDownloadFolder;
  int pairedDevices = 10;  ///< how many can be remembered
};

/// All of it together.
struct World {
  AdapterData adapter;
  SettingsData settings;
  std::vector<DeviceData> devices;
  Delays delays;
  std::time_t startTime = 0;  ///< the hour on the wall when the clock of the model is at 0
  unsigned seed = 1;          ///< for the digits of pairings and the like
};

/// The world of a service that is given no other: two phones and a serial accessory.
World BuiltInWorld();

/// Brings a world to the state that was kept, which alone decides who is paired. Paired devices that the
/// world does not have are added, out of range.
void Restore(const KeptState& kept, World& world);

}  // namespace btservice

#endif
