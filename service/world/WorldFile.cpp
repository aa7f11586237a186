#include "service/world/WorldFile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <utility>

#include <glib.h>

#define MWP_LOG_SOURCE "service/world/WorldFile"
#include <mwp/MWPLog.h>

#include "service/model/Contacts.h"
#include "service/world/FieldReader.h"
#include "service/world/InputFile.h"
#include "service/world/Limits.h"
#include "service/world/Quote.h"
#include "service/world/VCard.h"
#include "service/world/WorldFields.h"

namespace btservice {
namespace {

namespace fs = std::filesystem;

/// The folder of the shipped worlds: the one that BTSERVICE_WORLDS names, or else the one that lies where it
/// is installed relative to this program, wherever the two were moved to.
fs::path ShippedWorldsFolder() {
  const char* const named = std::getenv("BTSERVICE_WORLDS");
  if (named != nullptr && *named != '\0') {
    return named;
  }
  std::error_code ignored;
  const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
  return (program.parent_path() / BTSERVICE_WORLDS_FROM_PROGRAM).lexically_normal();
}

std::string FindWorld(const std::string& nameOrPath) {
  if (nameOrPath.find('/') != std::string::npos || fs::is_regular_file(nameOrPath)) {
    return nameOrPath;
  }
  const fs::path folder = ShippedWorldsFolder();
  const fs::path path = folder / (nameOrPath + ".json");
  if (fs::exists(path)) {
    return path.string();
  }
  std::string names;
  for (const std::string& name : ShippedWorlds()) {
    names += (names.empty() ? "" : ", ") + name;
  }
  throw std::runtime_error("there is neither a file nor a shipped world " + Quote(nameOrPath) + "; " +
                           (names.empty() ? "no worlds are in " + folder.string() : "shipped are: " + names));
}

template <typename Source>
Source ReadSource(const JsonNode& node, const std::string& fileName) {
  Source source;
  FieldReader reader(node, fileName, "");
  DescribeFields(reader, source);
  reader.RefuseOthers();
  return source;
}

Contact ToContact(const PhoneBookSource::Person& person) {
  Contact contact;
  contact.firstName = person.firstName;
  contact.familyName = person.familyName;
  for (const PhoneBookSource::Number& number : person.numbers) {
    AddNumber(contact, number.type, number.number);
  }
  return contact;
}

/// The contacts of a vCard file. The log names the cards that are skipped.
std::vector<Contact> ReadVCards(const std::string& file) {
  VCards cards = ParseVCards(ReadFile(file, kMostVCardBytes), file);
  for (const std::string& problem : cards.problems) {
    MWP_LOG(MWP_LOG_WARNING, "%s; this card is skipped", problem.c_str());
  }
  if (cards.skipped > cards.problems.size()) {
    MWP_LOG(MWP_LOG_WARNING, "%s: %zu more are skipped, and %zu contacts are read", file.c_str(),
            cards.skipped - cards.problems.size(), cards.contacts.size());
  }
  return std::move(cards.contacts);
}

std::vector<Contact> ToContacts(const PhoneBookSource& source, const fs::path& folder) {
  std::vector<Contact> contacts;
  for (const PhoneBookSource::Person& person : source.contacts) {
    contacts.push_back(ToContact(person));
  }
  if (!source.vcard.empty()) {
    const std::string file = (folder / source.vcard).string();
    const std::vector<Contact> cards = ReadVCards(file);
    contacts.insert(contacts.end(), cards.begin(), cards.end());
  }
  const std::vector<Contact> madeUp = MadeUpContacts(source.generate);
  contacts.insert(contacts.end(), madeUp.begin(), madeUp.end());
  if (contacts.size() > kMostContacts) {
    throw std::runtime_error("expected at most " + std::to_string(kMostContacts) +
                             " contacts in a phone book, got " + std::to_string(contacts.size()));
  }
  for (std::size_t i = 0; i < contacts.size(); ++i) {
    contacts[i].id = static_cast<int>(i) + 1;
  }
  return contacts;
}

DeviceData ToDevice(const DeviceSource& source, const fs::path& folder) {
  DeviceData device = source.device;
  device.phone.contacts = ToContacts(source.phoneBook, folder);
  device.phone.simContacts = ToContacts(source.simPhoneBook, folder);
  return device;
}

/// The devices of a world by their addresses in lower case, with their places in its list.
using DevicePlaces = std::map<std::string, std::size_t>;

std::string LowerCase(std::string address) {
  std::transform(address.begin(), address.end(), address.begin(), g_ascii_tolower);
  return address;
}

void RefuseTooMany(const WorldSource& source, const JsonNode& root, const std::string& fileName) {
  if (source.devices.size() > kMostDevices) {
    throw FileError(fileName, root.Find("devices")->line,
                    "devices: expected at most " + std::to_string(kMostDevices) + ", got " +
                        std::to_string(source.devices.size()));
  }
}

DevicePlaces RefuseTwins(const WorldSource& source, const JsonNode& root, const std::string& fileName) {
  DevicePlaces places;
  for (std::size_t i = 0; i < source.devices.size(); ++i) {
    const auto [place, isNew] = places.emplace(LowerCase(source.devices[i].device.address), i);
    if (!isNew) {
      throw FileError(fileName, root.Find("devices")->items[i].line,
                      "devices[" + std::to_string(i) +
                          "].address: expected one of its own, got that of devices[" +
                          std::to_string(place->second) + "]");
    }
  }
  return places;
}

void RefuseStrangers(const WorldSource& source, const DevicePlaces& known, const JsonNode& root,
                     const std::string& fileName) {
  for (std::size_t i = 0; i < source.timeline.size(); ++i) {
    const std::string& address = source.timeline[i].device;
    if (known.count(LowerCase(address)) == 0) {
      throw FileError(fileName, root.Find("timeline")->items[i].line,
                      "timeline[" + std::to_string(i) +
                          "].device: expected the address of one of the devices, got " + Quote(address));
    }
  }
}

}  // namespace

std::set<std::string> ShippedWorlds() {
  std::set<std::string> names;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(ShippedWorldsFolder(), ignored)) {
    const fs::path& path = entry.path();
    if (path.extension() == ".json" && path.stem().extension() != ".schema") {
      names.insert(path.stem().string());
    }
  }
  return names;
}

WorldSource ParseWorld(const std::string& json, const std::string& fileName) {
  const JsonNode root = ParseJson(json, fileName);
  WorldSource source = ReadSource<WorldSource>(root, fileName);
  RefuseTooMany(source, root, fileName);
  const DevicePlaces known = RefuseTwins(source, root, fileName);
  RefuseStrangers(source, known, root, fileName);
  return source;
}

WorldFile LoadWorld(const std::string& nameOrPath) {
  const std::string fileName = FindWorld(nameOrPath);
  const WorldSource source = ParseWorld(ReadFile(fileName, kMostJsonBytes), fileName);
  WorldFile file{source.world, source.timeline};
  for (const DeviceSource& device : source.devices) {
    file.world.devices.push_back(ToDevice(device, fs::path(fileName).parent_path()));
  }
  return file;
}

DeviceData ParseDevice(const std::string& json) {
  const std::string name = "device";
  if (json.size() > kMostJsonBytes) {
    throw FileError(name, 1, "expected at most " + std::to_string(kMostJsonBytes >> 20) + " MiB");
  }
  return ToDevice(ReadSource<DeviceSource>(ParseJson(json, name), name), fs::current_path());
}

}  // namespace btservice
