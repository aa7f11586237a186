#ifndef SERVICE_SIMULATION_WORLD_WORLDFILE_H
#define SERVICE_SIMULATION_WORLD_WORLDFILE_H

#include <set>
#include <string>
#include <vector>

#include "service/simulation/Timeline.h"

namespace btservice {

struct WorldSource;

/// A world and what happens in it by itself.
struct WorldFile {
  World world;
  std::vector<Happening> timeline;
};

/// Reads a world. A name without a slash that is no file here is that of a shipped one: "one-phone". Throws
/// std::runtime_error with file, line and what was expected.
WorldFile LoadWorld(const std::string& nameOrPath);

/// Reads the text of a world, and none of the files that it names. Throws as LoadWorld.
WorldSource ParseWorld(const std::string& json, const std::string& fileName);

/// The names of the shipped worlds: those in the folder that the environment variable BTSERVICE_WORLDS names,
/// or else in share/libbt/worlds beside the folder of this program.
std::set<std::string> ShippedWorlds();

/// Reads one device from the text of a JSON object, as a world's list of devices holds them. Files it names
/// are looked for in the current directory. Throws as LoadWorld; the text is called "device".
DeviceData ParseDevice(const std::string& json);

/// Reads an entry of a call log from the text of a JSON object, as a phone of a world holds them. Throws as
/// LoadWorld; the text is called "entry".
CallLogEntry ParseCallLog(const std::string& json);

/// Reads tracks from the text of a JSON list, as a folder of a world holds them. Throws as LoadWorld; the
/// text is called "tracks".
std::vector<TrackData> ParseTracks(const std::string& json);

/// The JSON Schema of world files.
std::string WorldSchema();

}  // namespace btservice

#endif
