#include "service/state/StateFile.h"

#include <filesystem>
#include <system_error>

#include <nlohmann/json.hpp>

#define MWP_LOG_SOURCE "service/state/StateFile"
#include <mwp/MWPLog.h>

#include "glib/Owned.h"
#include "service/files/FieldReader.h"
#include "service/files/InputFile.h"
#include "service/files/Limits.h"
#include "service/stack/ReportedAddress.h"

namespace btservice {

// Found by the type of its argument, and hence in the namespace of that.
static void DescribeFields(FieldReader& reader, KeptDevice& device);

namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormat = 1;
constexpr const char* kFormatMember = "format";
constexpr const char* kAttributesMember = "attributes";
constexpr const char* kPairedMember = "paired";
constexpr const char* kAddressMember = "address";
constexpr const char* kNameMember = "name";

/// The attributes that are kept, and their names in the file.
struct AttributeName {
  Attribute attribute;
  const char* name;
};

constexpr AttributeName kAttributes[] = {
    {BT_ATTR_LOCAL_NAME, "name"},
    {BT_ATTR_PIN_CODE, "pin"},
    {BT_ATTR_CLASS_OF_DEVICE, "classOfDevice"},
    {BT_ATTR_DOWNLOAD_FOLDER, "downloadFolder"},
};

/// What the file holds.
struct FileContents {
  int format = kFormat;
  KeptState state;
};

struct AttributesOf {
  KeptState& state;
};

void DescribeFields(FieldReader& reader, AttributesOf& attributes) {
  for (const AttributeName& kept : kAttributes) {
    reader.Required(kept.name, attributes.state.attributes[kept.attribute], "");
  }
}

/// An empty text is in the file for an attribute that has its default.
void DropEmpty(std::map<Attribute, std::string>& attributes) {
  for (const AttributeName& kept : kAttributes) {
    if (attributes[kept.attribute].empty()) {
      attributes.erase(kept.attribute);
    }
  }
}

void DescribeFields(FieldReader& reader, FileContents& contents) {
  reader.Required(kFormatMember, BoundedInt{contents.format, kFormat, kFormat}, "");
  reader.Required(kAttributesMember, AttributesOf{contents.state}, "");
  reader.Required(kPairedMember, contents.state.paired, "");
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
  FileContents contents;
  FieldReader reader(root, fileName, "");
  DescribeFields(reader, contents);
  reader.RefuseOthers();
  DropEmpty(contents.state.attributes);
  const KeptState& state = contents.state;
  if (state.paired.size() > kMostDevices) {
    throw FileError(fileName, root.Find(kPairedMember)->line,
                    "paired: expected at most " + std::to_string(kMostDevices) + " devices");
  }
  RefuseTwins(state, root, fileName);
  return contents.state;
}

}  // namespace

static void DescribeFields(FieldReader& reader, KeptDevice& device) {
  reader.Required(kAddressMember, AddressText{device.address}, "");
  reader.Required(kNameMember, device.name, "");
}

std::optional<KeptState> StateFile::Load() {
  if (m_path.empty()) {
    return std::nullopt;
  }
  try {
    m_saved = ReadFile(m_path, kMostJsonBytes);
    KeptState state = ParseState(m_saved, m_path);
    FollowLinks();
    return state;
  } catch (const UnreadableFile& problem) {
    return problem.IsMissing() ? std::nullopt : std::optional(GiveUp(problem.what()));
  } catch (const FileError& problem) {
    return GiveUp(problem.what());
  }
}

/// The file is replaced when something changes: that must not replace a link to it.
void StateFile::FollowLinks() {
  std::error_code problem;
  const std::filesystem::path file = std::filesystem::canonical(m_path, problem);
  if (!problem) {
    m_path = file.string();
  }
}

KeptState StateFile::GiveUp(const char* problem) {
  MWP_LOG(MWP_LOG_ERROR,
          "%s; the service starts without paired devices, and leaves this file as it is: nothing is kept of "
          "this run",
          problem);
  m_path.clear();
  return {};
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
  const KeptState state = m_stack->Kept();
  Json attributes = Json::object();
  for (const AttributeName& kept : kAttributes) {
    const auto value = state.attributes.find(kept.attribute);
    attributes[kept.name] = value != state.attributes.end() ? value->second : "";
  }
  Json paired = Json::array();
  for (const KeptDevice& device : state.paired) {
    paired.push_back({{kAddressMember, device.address}, {kNameMember, device.name}});
  }
  const std::string text =
      Json{{kFormatMember, kFormat}, {kAttributesMember, attributes}, {kPairedMember, paired}}.dump(2) + "\n";
  if (text == m_saved) {
    return;  // what has changed is not kept
  }
  const OwnedText folder(g_path_get_dirname(m_path.c_str()));
  g_mkdir_with_parents(folder.get(), 0700);
  OwnedError error;
  const auto flags =
      static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT | G_FILE_SET_CONTENTS_DURABLE);
  if (g_file_set_contents_full(m_path.c_str(), text.data(), static_cast<gssize>(text.size()), flags, 0600,
                               error.Out()) == FALSE) {
    MWP_LOG(MWP_LOG_ERROR, "%s: cannot be written: %s", VisiblePath(m_path).c_str(), error->message);
    return;
  }
  m_saved = text;
}

std::string DefaultStatePath() {
  return OwnedText(g_build_filename(g_get_user_state_dir(), "libbt", "btservice.json", nullptr)).get();
}

}  // namespace btservice
