#include <array>

#include "service/simulation/world/World.h"

namespace btservice {
namespace {

struct Person {
  const char* firstName;
  const char* familyName;
};

constexpr std::array<Person, 20> kPeople{
    {{"Ada", "Arndt"},     {"Ben", "Baker"},    {"Chiara", "Conti"},   {"David", "Dvořák"},
     {"Elif", "Erdem"},    {"Finn", "Fischer"}, {"Grace", "Green"},    {"Hiro", "Hayashi"},
     {"Inés", "Ibáñez"},   {"Jörg", "Jäger"},   {"Kaya", "Kowalski"},  {"Lena", "Lindqvist"},
     {"Mia", "Müller"},    {"Noah", "Novak"},   {"Olga", "Orlova"},    {"Pavel", "Petrov"},
     {"Quinn", "Quigley"}, {"Rosa", "Rossi"},   {"Søren", "Sørensen"}, {"Zoë", "Zimmer"}}};

std::string Number(const char* prefix, std::size_t person) { return prefix + std::to_string(100 + person); }

std::vector<Contact> Contacts() {
  std::vector<Contact> contacts;
  for (std::size_t i = 0; i < kPeople.size(); ++i) {
    Contact contact;
    contact.id = static_cast<int>(i) + 1;
    contact.firstName = kPeople[i].firstName;
    contact.familyName = kPeople[i].familyName;
    contact.numbers.push_back({NUMBER_MOBILE, {Number("+49170555", i)}});
    if (i % 2 == 0) {
      contact.numbers.push_back({NUMBER_HOME, {Number("+4930555", i), Number("+4940555", i)}});
    }
    if (i % 3 == 0) {
      contact.numbers.push_back({NUMBER_WORK, {Number("+4989555", i)}});
    }
    contacts.push_back(contact);
  }
  return contacts;
}

CallLogEntry Log(int id, CallLogType type, std::size_t person, const char* time, int seconds) {
  CallLogEntry entry;
  entry.id = id;
  entry.type = type;
  entry.name = std::string(kPeople[person].firstName) + " " + kPeople[person].familyName;
  entry.number = Number("+49170555", person);
  entry.date = "2026-05-29";
  entry.time = time;
  entry.seconds = seconds;
  return entry;
}

std::vector<TrackData> Album(const char* prefix, const char* artist, const char* album, const char* genre,
                             const std::vector<const char*>& titles) {
  std::vector<TrackData> tracks;
  for (const char* const title : titles) {
    const int number = static_cast<int>(tracks.size()) + 1;
    tracks.push_back({prefix + std::to_string(number), title, artist, album, genre,
                      std::chrono::seconds(150 + 17 * number)});
  }
  return tracks;
}

FolderData Music() {
  FolderData root{"root", "Music", {}, {}};
  root.folders.push_back({"f1",
                          "Harbour Lights",
                          {},
                          Album("h", "The Breakwaters", "Harbour Lights", "Folk",
                                {"Low Tide", "Lantern", "Harbour Lights", "Gulls at Noon"})});
  root.folders.push_back({"f2",
                          "Overdrive",
                          {},
                          Album("o", "Night Shift", "Overdrive", "Electronic",
                                {"Ignition", "Slip Road", "Overdrive", "Tail Lights"})});
  root.folders.push_back({"f3",
                          "Kleine Stücke",
                          {},
                          Album("k", "Ensemble Nord", "Kleine Stücke", "Classical",
                                {"Morgens", "Mittags", "Abends", "Nachts"})});
  return root;
}

DeviceData Smartphone() {
  DeviceData device;
  device.address = "00:1A:7D:DA:71:13";
  device.name = "Ada's phone";
  device.support = BT_SUPPORT_ANDROID_AUTO;
  device.profiles = {BT_PROFILE_HFP, BT_PROFILE_A2DP, BT_PROFILE_AVRCP, BT_PROFILE_PBAP,
                     BT_PROFILE_MAP, BT_PROFILE_SPP,  BT_PROFILE_HID};
  device.pairing = BT_PAIR_REQUEST_CONFIRMATION;
  device.phone.ownNumber = "+49170555100";
  device.phone.networkOperator = "Nordnetz";
  device.phone.contacts = Contacts();
  device.phone.simContacts = {{1, "Voice", "Mail", {{NUMBER_OTHER, {"+4933555"}}}}};
  device.phone.callLogs = {
      Log(1, CALL_LOG_INCOMING, 1, "18:05:10", 125), Log(2, CALL_LOG_OUTGOING, 2, "17:40:00", 64),
      Log(3, CALL_LOG_MISSED, 3, "12:13:14", 0), Log(4, CALL_LOG_INCOMING, 4, "09:30:00", 600),
      Log(5, CALL_LOG_MISSED, 1, "08:01:59", 0)};
  device.phone.messages = {{"20000001", "Ben Baker", "On my way."}, {"20000002", "+49170555102", "Ciao!"}};
  device.music = Music();
  return device;
}

DeviceData OldPhone() {
  DeviceData device;
  device.address = "00:02:EE:5A:10:4C";
  device.name = "Old faithful";
  device.profiles = {BT_PROFILE_HFP};
  device.pairing = BT_PAIR_REQUEST_PIN_CODE;
  device.pin = "1234";
  device.phone.ownNumber = "+49171555900";
  device.phone.networkOperator = "Südfunk";
  device.phone.signal = 3;
  device.phone.battery = 2;
  device.phone.codec = BT_CODEC_CVSD;
  return device;
}

DeviceData Accessory() {
  DeviceData device;
  device.address = "F0:08:D1:C0:FF:EE";
  device.name = "Dash logger";
  device.support = BT_SUPPORT_SERIAL_ACCESSORY;
  device.profiles = {BT_PROFILE_SPP};
  device.pairing = BT_PAIR_REQUEST_JUST_WORKS;
  device.serial.script = {{"VERSION?", "DASH 1.4"}};
  return device;
}

}  // namespace

World BuiltInWorld() {
  World world;
  world.devices = {Smartphone(), OldPhone(), Accessory()};
  return world;
}

}  // namespace btservice
