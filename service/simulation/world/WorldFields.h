#ifndef SERVICE_SIMULATION_WORLD_WORLDFIELDS_H
#define SERVICE_SIMULATION_WORLD_WORLDFIELDS_H

#include "service/files/FieldTypes.h"
#include "service/simulation/Timeline.h"
#include "service/simulation/world/Words.h"

namespace btservice {

// The format of world files, said once: a reader fills the structs by it, a writer makes the schema from it.
// The defaults are those of the structs.

/// Where the contacts of a phone come from; what is given is put together.
struct PhoneBookSource {
  struct Number {
    NumberType type = NUMBER_MOBILE;
    std::string number;
  };
  struct Person {
    std::string firstName;
    std::string familyName;
    std::vector<Number> numbers;
  };
  std::vector<Person> contacts;
  std::string vcard;
  int generate = 0;
};

/// A device as a file describes it: the contacts of its phone are put together when all else is read.
struct DeviceSource {
  DeviceData device;
  PhoneBookSource phoneBook;
  PhoneBookSource simPhoneBook;
};

/// A world as a file describes it.
struct WorldSource {
  int format = 1;
  std::string description;
  World world;
  std::vector<DeviceSource> devices;
  std::vector<Happening> timeline;
};

// Their names in the schema.
constexpr const char* SchemaName(const PhoneBookSource::Number*) { return "number"; }
constexpr const char* SchemaName(const PhoneBookSource::Person*) { return "contact"; }
constexpr const char* SchemaName(const PhoneBookSource*) { return "phoneBook"; }
constexpr const char* SchemaName(const CallLogEntry*) { return "callLog"; }
constexpr const char* SchemaName(const MessageData*) { return "message"; }
constexpr const char* SchemaName(const PhoneData*) { return "phone"; }
constexpr const char* SchemaName(const TrackData*) { return "track"; }
constexpr const char* SchemaName(const FolderData*) { return "folder"; }
constexpr const char* SchemaName(const SerialData*) { return "serial"; }
constexpr const char* SchemaName(const DeviceSource*) { return "device"; }
constexpr const char* SchemaName(const AdapterData*) { return "adapter"; }
constexpr const char* SchemaName(const Delays*) { return "delays"; }
constexpr const char* SchemaName(const Happening*) { return "happening"; }

template <typename Visitor>
void DescribeFields(Visitor& v, PhoneBookSource::Number& number) {
  v.Optional("type", number.type, "Kind of number");
  v.Required("number", number.number, "As it is dialed");
}

template <typename Visitor>
void DescribeFields(Visitor& v, PhoneBookSource::Person& person) {
  v.Optional("firstName", person.firstName, "Given name");
  v.Optional("familyName", person.familyName, "Family name, or that of a company");
  v.Optional("numbers", person.numbers, "Telephone numbers");
}

template <typename Visitor>
void DescribeFields(Visitor& v, PhoneBookSource& source) {
  v.Optional("contacts", source.contacts, "Contacts written out");
  v.Optional("vcard", source.vcard, "A vCard file, beside the world's file");
  v.Optional("generate", BoundedInt{source.generate, 0, 100000}, "Number of contacts to make up");
}

template <typename Visitor>
void DescribeFields(Visitor& v, CallLogEntry& entry) {
  v.Required("type", entry.type, "Which log it is in");
  v.Required("number", entry.number, "The other end");
  v.Optional("name", entry.name, "Name of the other end, if it is in no contact");
  v.Optional("date", PatternText{entry.date, "[0-9]{4}-[0-9]{2}-[0-9]{2}", "a date such as 2026-05-29"},
             "Day of the call");
  v.Optional("time", PatternText{entry.time, "[0-9]{2}:[0-9]{2}:[0-9]{2}", "a time such as 18:05:10"},
             "Time of day");
  v.Optional("seconds", BoundedInt{entry.seconds, 0, 1000000}, "Length of the call");
}

template <typename Visitor>
void DescribeFields(Visitor& v, MessageData& message) {
  v.Required("handle", PatternText{message.handle, "[0-9A-Fa-f]{1,16}", "up to 16 hexadecimal digits"},
             "Handle of the message");
  v.Optional("sender", message.sender, "Name or number");
  v.Optional("text", message.text, "What it says");
}

template <typename Visitor>
void DescribeFields(Visitor& v, PhoneData& phone) {
  v.Optional("ownNumber", phone.ownNumber, "The phone's own number; empty: it is unknown");
  v.Optional("operator", phone.networkOperator, "Name of the network; empty: there is none");
  v.Optional("signal", BoundedInt{phone.signal, 0, 5}, "Signal strength in bars");
  v.Optional("battery", BoundedInt{phone.battery, 0, 5}, "Battery in bars");
  v.Optional("roaming", phone.roaming, "In a foreign network");
  v.Optional("codec", phone.codec, "Codec of the call audio");
  v.Optional("calledParty", phone.calledParty, "What the people do who are called");
  v.Optional("answersAfterMs", Duration{phone.answersAfter}, "How long the phone rings until they answer");
  v.Optional("sharesPhoneBook", phone.sharesPhoneBook, "False: a download is refused");
  v.Optional("callLogs", phone.callLogs, "Past calls");
  v.Optional("messages", phone.messages, "Messages in the inbox");
}

template <typename Visitor>
void DescribeFields(Visitor& v, TrackData& track) {
  v.Required("uid", track.uid, "Identifier of the track, unique in the device");
  v.Required("title", track.title, "Title");
  v.Optional("artist", track.artist, "Artist");
  v.Optional("album", track.album, "Album");
  v.Optional("genre", track.genre, "Genre");
  v.Required("lengthMs", Duration{track.length}, "Length");
}

template <typename Visitor>
void DescribeFields(Visitor& v, FolderData& folder) {
  v.Optional("uid", folder.uid, "Identifier of the folder, unique in the device");
  v.Optional("name", folder.name, "Name to show");
  v.Optional("folders", folder.folders, "Folders in it");
  v.Optional("tracks", folder.tracks, "Tracks in it");
}

template <typename Visitor>
void DescribeFields(Visitor& v, SerialData& serial) {
  v.Optional("script", serial.script, "Answers by what is sent; anything else comes back as it is");
}

template <typename Visitor>
void DescribeFields(Visitor& v, DeviceSource& source) {
  DeviceData& device = source.device;
  v.Required("address", AddressText{device.address}, "Bluetooth address");
  v.Required("name", device.name, "The name it gives itself");
  v.Optional("support", device.support, "What it supports beyond the profiles");
  v.Optional("profiles", device.profiles, "Profiles it supports");
  v.Optional("refusedProfiles", device.refusedProfiles, "Profiles that fail to connect although supported");
  v.Optional("pairing", device.pairing, "Its way of pairing");
  v.Optional("pin", device.pin, "PIN, or the digits it shows, where its way of pairing needs them");
  v.Optional("acceptsPairing", device.acceptsPairing, "False: the person at the device refuses");
  v.Optional("inRange", device.inRange, "False: it is out of reach for now");
  v.Optional("paired", device.paired, "Paired from the beginning");
  v.Optional("phone", device.phone, "The telephone in it");
  v.Optional("phoneBook", source.phoneBook, "Contacts in its memory");
  v.Optional("simPhoneBook", source.simPhoneBook, "Contacts on its SIM card");
  v.Optional("music", device.music, "The music in it: the root folder");
  v.Optional("serial", device.serial, "The other end of its serial channel");
}

template <typename Visitor>
void DescribeFields(Visitor& v, AdapterData& adapter) {
  v.Optional("address", AddressText{adapter.address}, "Address of the head unit");
  v.Optional("name", adapter.name, "The name others see");
  v.Optional("pin", PatternText{adapter.pin, "[0-9]{1,16}", "1 to 16 digits"}, "PIN offered to old devices");
  v.Optional("stackVersion", adapter.stackVersion, "Version it claims to be");
  v.Optional("classOfDevice", PatternText{adapter.classOfDevice, "[0-9A-Fa-f]{6}", "six hexadecimal digits"},
             "Class of device");
  v.Optional("downloadFolder", adapter.downloadFolder, "Where cover images are put");
  v.Optional("pairedDevices", BoundedInt{adapter.pairedDevices, 1, 100}, "How many can be remembered");
}

template <typename Visitor>
void DescribeFields(Visitor& v, Delays& delays) {
  v.Optional("powerOnMs", Duration{delays.powerOn}, "Powering on");
  v.Optional("powerOffMs", Duration{delays.powerOff}, "Powering off");
  v.Optional("scanFirstMs", Duration{delays.scanFirst}, "Until a search finds its first device");
  v.Optional("scanNextMs", Duration{delays.scanNext}, "From one device found to the next");
  v.Optional("scanLengthMs", Duration{delays.scanLength}, "Until a search ends by itself");
  v.Optional("pageMs", Duration{delays.page}, "Until a device in range answers");
  v.Optional("pageTimeoutMs", Duration{delays.pageTimeout},
             "Until the attempt to reach a device out of range fails");
  v.Optional("profileMs", Duration{delays.profile}, "Connecting one profile");
  v.Optional("disconnectMs", Duration{delays.disconnect}, "Disconnecting one");
  v.Optional("reconnectMs", Duration{delays.reconnect}, "From a lost link to the attempt to have it back");
  v.Optional("pairKeysMs", Duration{delays.pairKeys}, "Agreeing on keys");
  v.Optional("pairRemoteMs", Duration{delays.pairRemote}, "Until the person at the device has answered");
  v.Optional("pairAnswerMs", Duration{delays.pairAnswer}, "Until an unanswered pairing fails");
  v.Optional("autoAnswerPairMs", Duration{delays.autoAnswerPair},
             "Until a pairing is answered automatically");
  v.Optional("oobKeyMs", Duration{delays.oobKey}, "Taking an out-of-band key");
  v.Optional("projectionMs", Duration{delays.projection}, "Answering a projection pairing");
  v.Optional("deletePairingMs", Duration{delays.deletePairing}, "Deleting a pairing");
  v.Optional("dialMs", Duration{delays.dial}, "From dialing to ringing");
  v.Optional("hangUpMs", Duration{delays.hangUp}, "Rejecting a call automatically");
  v.Optional("autoAnswerMs", Duration{delays.autoAnswer}, "Until a call is accepted automatically");
  v.Optional("ringTimeoutMs", Duration{delays.ringTimeout}, "Until an unanswered call ends");
  v.Optional("callAudioMs", Duration{delays.callAudio}, "Bringing call audio to the head unit");
  v.Optional("voiceMs", Duration{delays.voice}, "Starting voice recognition");
  v.Optional("playerReplyMs", Duration{delays.playerReply}, "Until the player obeys a command");
  v.Optional("browseMs", Duration{delays.browse}, "Listing a folder");
  v.Optional("coverMs", Duration{delays.cover}, "Until a cover image arrives");
  v.Optional("downloadStartMs", Duration{delays.downloadStart}, "Until a phone book begins to arrive");
  v.Optional("downloadStepMs", Duration{delays.downloadStep}, "From one part of a phone book to the next");
  v.Optional("downloadStepSize", BoundedInt{delays.downloadStepSize, 1, 100000}, "Entries in such a part");
  v.Optional("phoneBookEditMs", Duration{delays.phoneBookEdit}, "Changing the phone book");
  v.Optional("serialReplyMs", Duration{delays.serialReply}, "Until a serial channel answers");
  v.Optional("hidCalibrationMs", Duration{delays.hidCalibration}, "Calibrating HID");
  v.Optional("messageStepMs", Duration{delays.messageStep}, "From one message fetched to the next");
}

template <typename Visitor>
void DescribeFields(Visitor& v, Happening& happening) {
  v.Required("atMs", Duration{happening.at}, "When, from the start of the service");
  v.Optional("everyMs", Duration{happening.every}, "Again and again in this period; 0: once");
  v.Required("do", happening.kind, "What happens");
  v.Required("device", AddressText{happening.device}, "The device to which it happens");
  v.Optional("number", happening.number, "The number that calls");
  v.Optional("text", happening.text, "Name of the operator, text of the message, or what is sent");
  v.Optional("sender", happening.sender, "Who the message is from");
  v.Optional("bars", BoundedInt{happening.bars, 0, 5}, "Bars of the signal or of the battery");
  v.Optional("on", happening.on, "True or false, for what happens that needs one of them");
  v.Optional("profile", happening.profile, "The profile to connect or disconnect");
  v.Optional("calledParty", happening.calledParty, "What the people do who are called");
  v.Optional("answersAfterMs", Duration{happening.answersAfter},
             "How long the phone rings until they answer");
}

template <typename Visitor>
void DescribeFields(Visitor& v, WorldSource& source) {
  v.Required("format", BoundedInt{source.format, 1, 1}, "Version of this format");
  v.Optional("description", source.description, "What this world is for");
  v.Optional("adapter", source.world.adapter, "The head unit's adapter");
  v.Optional("delays", source.world.delays, "How long things take");
  v.Optional("devices", source.devices, "The devices of the world");
  v.Optional("timeline", source.timeline, "What happens by itself");
}

}  // namespace btservice

#endif
