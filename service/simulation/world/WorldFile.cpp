#include "service/simulation/world/WorldFile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <utility>

#include <glib.h>

#include "service/files/FieldReader.h"
#include "service/files/InputFile.h"
#include "service/files/Limits.h"
#include "service/files/Quote.h"
#include "service/simulation/world/PhoneBookLoader.h"
#include "service/simulation/world/WorldFields.h"

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
  std::error_code ignored;
  if (nameOrPath.find('/') != std::string::npos || fs::is_regular_file(nameOrPath, ignored)) {
    return nameOrPath;
  }
  const fs::path folder = ShippedWorldsFolder();
  const fs::path path = folder / (nameOrPath + ".json");
  if (fs::exists(path, ignored)) {
    return path.string();
  }
  if (fs::exists(nameOrPath, ignored)) {
    return nameOrPath;  // no file that could be read: reading it says so
  }
  std::string names;
  for (const std::string& name : ShippedWorlds()) {
    names += (names.empty() ? "" : ", ") + name;
  }
  throw std::runtime_error(
      "there is neither a file nor a shipped world " + Quote(nameOrPath) + "; " +
      (names.empty() ? "no worlds are in " + VisiblePath(folder.string()) : "shipped are: " + names));
}

/// What somebody sent, not a file.
JsonNode ParseText(const std::string& json, const std::string& name) {
  if (json.size() > kMostJsonBytes) {
    throw FileError(name, 1, "expected at most " + std::to_string(kMostJsonBytes >> 20) + " MiB");
  }
  return ParseJson(json, name);
}

template <typename Source>
Source ReadSource(const JsonNode& node, const std::string& fileName, const std::string& place = "") {
  Source source;
  FieldReader reader(node, fileName, place);
  DescribeFields(reader, source);
  reader.RefuseOthers();
  return source;
}

DeviceData ToDevice(const DeviceSource& source, const JsonNode& node, const std::string& place,
                    PhoneBookLoader& books) {
  DeviceData device = source.device;
  device.phone.contacts = books.Load(source.phoneBook, node.Find("phoneBook"), place + "phoneBook");
  device.phone.simContacts =
      books.Load(source.simPhoneBook, node.Find("simPhoneBook"), place + "simPhoneBook");
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

WorldSource SourceOf(const JsonNode& root, const std::string& fileName) {
  WorldSource source = ReadSource<WorldSource>(root, fileName);
  RefuseTooMany(source, root, fileName);
  const DevicePlaces known = RefuseTwins(source, root, fileName);
  RefuseStrangers(source, known, root, fileName);
  return source;
}

}  // namespace

std::set<std::string> ShippedWorlds() {
  std::set<std::string> names;
  std::error_code ignored;
  fs::directory_iterator entry(ShippedWorldsFolder(), ignored);
  for (; entry != fs::directory_iterator(); entry.increment(ignored)) {
    const fs::path& path = entry->path();
    if (path.extension() == ".json" && path.stem().extension() != ".schema") {
      names.insert(path.stem().string());
    }
  }
  return names;
}

WorldSource ParseWorld(const std::string& json, const std::string& fileName) {
  return SourceOf(ParseJson(json, fileName), fileName);
}

WorldFile LoadWorld(const std::string& nameOrPath) {
  const std::string fileName = FindWorld(nameOrPath);
  const JsonNode root = ParseJson(ReadFile(fileName, kMostJsonBytes), fileName);
  const WorldSource source = SourceOf(root, fileName);
  WorldFile file{source.world, source.timeline};
  PhoneBookLoader books(fileName, fs::path(fileName).parent_path().string());
  for (std::size_t i = 0; i < source.devices.size(); ++i) {
    file.world.devices.push_back(ToDevice(source.devices[i], root.Find("devices")->items[i],
                                          "devices[" + std::to_string(i) + "].", books));
  }
  return file;
}

DeviceData ParseDevice(const std::string& json) {
  const std::string name = "device";
  const JsonNode root = ParseText(json, name);
  PhoneBookLoader books(name, "");
  return ToDevice(ReadSource<DeviceSource>(root, name), root, "", books);
}

CallLogEntry ParseCallLog(const std::string& json) {
  const std::string name = "entry";
  return ReadSource<CallLogEntry>(ParseText(json, name), name);
}

std::vector<TrackData> ParseTracks(const std::string& json) {
  const std::string name = "tracks";
  const JsonNode root = ParseText(json, name);
  if (root.kind != JsonNode::Kind::LIST) {
    throw FileError(name, root.line, "expected a list of tracks");
  }
  std::vector<TrackData> tracks;
  for (const JsonNode& track : root.items) {
    tracks.push_back(ReadSource<TrackData>(track, name, "[" + std::to_string(tracks.size()) + "]"));
  }
  return tracks;
}

}  // namespace btservice
