#include "service/state/StateFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <glib.h>
#include <nlohmann/json.hpp>

#define MWP_LOG_SOURCE "service/state/StateFile"
#include <mwp/MWPLog.h>

#include "service/model/DeviceTable.h"

namespace btservice {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;
constexpr const char* kFormatMember = "format";
constexpr const char* kAttributesMember = "attributes";
constexpr const char* kPairedMember = "paired";

/// The attributes that are kept, and the members of the adapter's data they come from.
struct KeptAttribute {
  Attribute attribute;
  const char* name;
  std::string AdapterData::*member;
};

const KeptAttribute kAttributes[] = {
    {BT_ATTR_LOCAL_NAME, "name", &AdapterData::name},
    {BT_ATTR_PIN_CODE, "pin", &AdapterData::pin},
    {BT_ATTR_CLASS_OF_DEVICE, "classOfDevice", &AdapterData::classOfDevice},
    {BT_ATTR_DOWNLOAD_FOLDER, "downloadFolder", &AdapterData::downloadFolder},
};

/// A device of the world, or, if it has left the world, one that is never in range.
DeviceData TakeDevice(std::vector<DeviceData>& devices, const std::string& address, const std::string& name) {
  const auto place = std::find_if(devices.begin(), devices.end(), [&](const DeviceData& device) {
    return SameAddress(device.address, address);
  });
  DeviceData device;
  if (place != devices.end()) {
    device = *place;
    devices.erase(place);
  } else {
    device.address = address;
    device.name = name;
    device.inRange = false;
  }
  device.paired = true;
  return device;
}

/// Throws if the state is not of the expected form; the world is untouched then.
World Restored(const World& world, const Json& state) {
  World restored = world;
  if (state.at(kFormatMember).get<int>() != kFormat) {
    throw std::runtime_error("its format is not " + std::to_string(kFormat));
  }
  for (const KeptAttribute& kept : kAttributes) {
    restored.adapter.*kept.member = state.at(kAttributesMember).at(kept.name).get<std::string>();
  }
  // The order of the paired devices is that of the file, so they come first.
  std::vector<DeviceData> devices;
  for (DeviceData& device : restored.devices) {
    device.paired = false;
  }
  for (const Json& entry : state.at(kPairedMember)) {
    const std::string address = entry.at("address").get<std::string>();
    if (!IsDeviceAddress(address)) {
      throw std::runtime_error("'" + address + "' is not a Bluetooth address");
    }
    devices.push_back(TakeDevice(restored.devices, address, entry.at("name").get<std::string>()));
  }
  devices.insert(devices.end(), restored.devices.begin(), restored.devices.end());
  restored.devices = std::move(devices);
  return restored;
}

void PutAside(const std::string& path, const char* reason) {
  const std::string aside = path + ".broken";
  std::error_code failed;
  std::filesystem::rename(path, aside, failed);
  MWP_LOG(MWP_LOG_ERROR, "%s: not a state of this service (%s); %s %s", path.c_str(), reason,
          failed ? "it could not be moved to" : "it is now", aside.c_str());
}

}  // namespace

void StateFile::Restore(World& world) {
  gchar* contents = nullptr;
  if (m_path.empty() || g_file_get_contents(m_path.c_str(), &contents, nullptr, nullptr) == FALSE) {
    return;
  }
  m_saved = contents;
  g_free(contents);
  try {
    world = Restored(world, Json::parse(m_saved));
  } catch (const std::exception& problem) {
    PutAside(m_path, problem.what());
  }
}

void StateFile::Follow(BluetoothStack& stack) {
  m_stack = &stack;
  stack.AddObserver(*this);
}

void StateFile::OnStackEvent(const StackEvent& event) {
  const bool concerns =
      std::holds_alternative<PairedDevicesChanged>(event) || std::holds_alternative<AttributeChanged>(event);
  if (concerns && !m_path.empty()) {
    Save();
  }
}

void StateFile::Save() {
  Json attributes = Json::object();
  for (const KeptAttribute& kept : kAttributes) {
    std::string value;
    m_stack->Adapter().GetAttribute(kept.attribute, value);
    attributes[kept.name] = value;
  }
  Json paired = Json::array();
  for (const DeviceInfo& device : m_stack->Devices().PairedDevices()) {
    paired.push_back({{"address", device.address}, {"name", device.name}});
  }
  const std::string text =
      Json{{kFormatMember, kFormat}, {kAttributesMember, attributes}, {kPairedMember, paired}}.dump(2) + "\n";
  if (text == m_saved) {
    return;  // what has changed is not kept
  }
  g_autofree gchar* folder = g_path_get_dirname(m_path.c_str());
  g_mkdir_with_parents(folder, 0700);
  g_autoptr(GError) error = nullptr;
  const auto flags =
      static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
  if (g_file_set_contents_full(m_path.c_str(), text.data(), static_cast<gssize>(text.size()), flags, 0600,
                               &error) == FALSE) {
    MWP_LOG(MWP_LOG_ERROR, "%s: cannot be written: %s", m_path.c_str(), error->message);
    return;
  }
  m_saved = text;
}

std::string DefaultStatePath() {
  g_autofree gchar* path = g_build_filename(g_get_user_state_dir(), "libbt", "btservice.json", nullptr);
  return path;
}

}  // namespace btservice
