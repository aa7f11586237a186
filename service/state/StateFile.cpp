#include "service/state/StateFile.h"

#include <algorithm>
#include <utility>

#include <glib.h>
#include <nlohmann/json.hpp>

#define MWP_LOG_SOURCE "service/state/StateFile"
#include <mwp/MWPLog.h>

#include "service/model/DeviceTable.h"
#include "service/world/FieldReader.h"
#include "service/world/InputFile.h"
#include "service/world/Limits.h"

namespace btservice {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;
constexpr const char* kFormatMember = "format";
constexpr const char* kAttributesMember = "attributes";
constexpr const char* kPairedMember = "paired";
constexpr const char* kAddressMember = "address";
constexpr const char* kNameMember = "name";

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

void Unpair(World& world) {
  for (DeviceData& device : world.devices) {
    device.paired = false;
  }
}

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

/// A paired device as the file has it.
struct KeptDevice {
  std::string address;
  std::string name;
};

/// What the file holds.
struct KeptState {
  int format = kFormat;
  AdapterData adapter;
  std::vector<KeptDevice> paired;
};

struct KeptAttributes {
  AdapterData& adapter;
};

void DescribeFields(FieldReader& reader, KeptDevice& device) {
  reader.Required(kAddressMember, AddressText{device.address}, "");
  reader.Required(kNameMember, device.name, "");
}

void DescribeFields(FieldReader& reader, KeptAttributes& attributes) {
  for (const KeptAttribute& kept : kAttributes) {
    reader.Required(kept.name, attributes.adapter.*kept.member, "");
  }
}

void DescribeFields(FieldReader& reader, KeptState& state) {
  reader.Required(kFormatMember, BoundedInt{state.format, kFormat, kFormat}, "");
  reader.Required(kAttributesMember, KeptAttributes{state.adapter}, "");
  reader.Required(kPairedMember, state.paired, "");
}

/// A device that is paired twice would be in the world twice.
void RefuseTwins(const KeptState& state, const JsonNode& root, const std::string& fileName) {
  for (std::size_t i = 0; i < state.paired.size(); ++i) {
    for (std::size_t before = 0; before < i; ++before) {
      if (SameAddress(state.paired[i].address, state.paired[before].address)) {
        throw FileError(fileName, root.Find(kPairedMember)->items[i].line,
                        "paired[" + std::to_string(i) +
                            "].address: expected one of its own, got that of paired[" +
                            std::to_string(before) + "]");
      }
    }
  }
}

/// Throws FileError.
KeptState ParseState(const std::string& text, const std::string& fileName) {
  const JsonNode root = ParseJson(text, fileName);
  KeptState state;
  FieldReader reader(root, fileName, "");
  DescribeFields(reader, state);
  reader.RefuseOthers();
  if (state.paired.size() > kMostDevices) {
    throw FileError(fileName, root.Find(kPairedMember)->line,
                    "paired: expected at most " + std::to_string(kMostDevices) + " devices");
  }
  RefuseTwins(state, root, fileName);
  return state;
}

void Apply(const KeptState& state, World& world) {
  for (const KeptAttribute& kept : kAttributes) {
    world.adapter.*kept.member = state.adapter.*kept.member;
  }
  // The order of the paired devices is that of the file, so they come first.
  std::vector<DeviceData> devices;
  Unpair(world);
  for (const KeptDevice& kept : state.paired) {
    devices.push_back(TakeDevice(world.devices, kept.address, kept.name));
  }
  devices.insert(devices.end(), world.devices.begin(), world.devices.end());
  world.devices = std::move(devices);
}

}  // namespace

void StateFile::Restore(World& world) {
  if (m_path.empty()) {
    return;
  }
  try {
    m_saved = ReadFile(m_path, kMostJsonBytes);
    Apply(ParseState(m_saved, m_path), world);
  } catch (const UnreadableFile& problem) {
    if (!problem.IsMissing()) {
      GiveUp(problem.what(), world);
    }
  } catch (const FileError& problem) {
    GiveUp(problem.what(), world);
  }
}

void StateFile::GiveUp(const char* problem, World& world) {
  MWP_LOG(MWP_LOG_ERROR,
          "%s; the service starts without paired devices, and leaves this file as it is: nothing is kept of "
          "this run",
          problem);
  Unpair(world);
  m_path.clear();
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
    paired.push_back({{kAddressMember, device.address}, {kNameMember, device.name}});
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
