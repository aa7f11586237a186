#include "service/bluez/adapter/Attributes.h"

#include <array>
#include <cstdio>

#include "protocol/Address.h"
#include "service/bluez/AirText.h"
#include "service/bluez/Refusal.h"
#include "service/stack/AdapterRules.h"
#include "service/stack/ReportedAddress.h"

namespace btservice::bluez {
namespace {

constexpr const char* kAlias = "Alias";

/// What is read from BlueZ, and where.
struct AdapterAttribute {
  Attribute attribute;
  const char* property;
};
constexpr AdapterAttribute kAdapterAttributes[] = {{BT_ATTR_LOCAL_NAME, kAlias},
                                                   {BT_ATTR_LOCAL_ADDRESS, "Address"},
                                                   {BT_ATTR_STACK_VERSION, "Modalias"},
                                                   {BT_ATTR_CLASS_OF_DEVICE, "Class"}};

/// "BlueZ 5.66" from "usb:v1D6Bp0246d0542", whose last four digits are the version: one byte before the dot
/// and one behind it.
std::optional<std::string> VersionFrom(const std::string& modalias) {
  const std::size_t mark = modalias.rfind('d');
  unsigned major = 0;
  unsigned minor = 0;
  int read = 0;
  if (mark == std::string::npos ||
      std::sscanf(modalias.c_str() + mark, "d%2x%2x%n", &major, &minor, &read) != 2 || read != 5) {
    return std::nullopt;
  }
  return "BlueZ " + std::to_string(major) + "." + std::to_string(minor);
}

std::string ClassText(std::uint32_t value) {
  std::array<char, 9> digits{};
  std::snprintf(digits.data(), digits.size(), "%06x", value & 0xFFFFFFU);
  return digits.data();
}

}  // namespace

Attributes::Attributes(StackContext& context, CurrentAdapter& adapter, const std::optional<KeptState>& kept)
    : m_context(context),
      m_adapter(adapter),
      m_own{{BT_ATTR_PIN_CODE, kFirstPin}, {BT_ATTR_DOWNLOAD_FOLDER, kFirstDownloadFolder}} {
  if (kept) {
    for (const auto& [attribute, value] : kept->attributes) {
      if (IsAllowed(attribute, value)) {
        m_own[attribute] = value;
      }
    }
  }
  m_adapter.onCome.Add([this] { OnCome(); });
  m_adapter.onChanged.Add([this](const std::set<std::string>& names) { OnChanged(names); });
}

std::optional<std::string> Attributes::Find(Attribute attribute) const {
  const Properties& values = m_adapter.Values();
  switch (attribute) {
    case BT_ATTR_LOCAL_NAME:
      if (const auto alias = values.Text(kAlias)) {
        return AirText(*alias, kLongestDeviceName);
      }
      return std::nullopt;
    case BT_ATTR_LOCAL_ADDRESS: {
      const auto address = values.Text("Address");
      return address && IsBluetoothAddress(*address) ? std::optional(ReportedAddress(*address))
                                                     : std::nullopt;
    }
    case BT_ATTR_STACK_VERSION: {
      const auto modalias = values.Text("Modalias");
      return modalias ? VersionFrom(*modalias) : std::nullopt;
    }
    case BT_ATTR_CLASS_OF_DEVICE: {
      const auto value = values.Number("Class");
      return value ? std::optional(ClassText(*value)) : std::nullopt;
    }
    case BT_ATTR_PIN_CODE:
    case BT_ATTR_DOWNLOAD_FOLDER:
      return m_own.at(attribute);
  }
  return std::nullopt;
}

bool Attributes::Get(Attribute attribute, std::string& value) const {
  const std::optional<std::string> found = Find(attribute);
  value = found.value_or(value);
  return found.has_value();
}

bool Attributes::Set(Attribute attribute, const std::string& value) {
  if (attribute == BT_ATTR_CLASS_OF_DEVICE) {
    return Refuse("SetAttribute(class)", "BlueZ takes the class of device from its configuration only");
  }
  if (!IsAllowed(attribute, value)) {
    return false;
  }
  if (attribute == BT_ATTR_LOCAL_NAME) {
    return SetName(value);
  }
  m_own[attribute] = value;
  Report(attribute);
  return true;
}

bool Attributes::SetName(const std::string& name) {
  const auto done = [this, name, before = m_nameReports](const Reply& reply) {
    if (HasFailed("the adapter does not take its name", reply)) {
      return;
    }
    m_own[BT_ATTR_LOCAL_NAME] = name;
    // BlueZ signals no change if it had that name. If it had not, the signal comes before or after its
    // answer.
    if (before == m_nameReports && m_adapter.Values().Text(kAlias) == name) {
      Report(BT_ATTR_LOCAL_NAME);
    }
  };
  m_orderedName = name;
  return m_adapter.Set(kAlias, g_variant_new_string(name.c_str()), done);
}

void Attributes::OnCome() {
  const auto kept = m_own.find(BT_ATTR_LOCAL_NAME);
  if (kept != m_own.end() && m_adapter.Values().Text(kAlias) != kept->second) {
    SetName(kept->second);
  }
  for (const AdapterAttribute& one : kAdapterAttributes) {
    Report(one.attribute);
  }
}

void Attributes::OnChanged(const std::set<std::string>& names) {
  for (const AdapterAttribute& one : kAdapterAttributes) {
    if (names.count(one.property) == 0) {
      continue;
    }
    if (one.attribute == BT_ATTR_LOCAL_NAME) {
      ++m_nameReports;
      KeepName();
    }
    Report(one.attribute);
  }
}

/// What another program has called the adapter is kept if a name was ever set here.
void Attributes::KeepName() {
  const auto name = Find(BT_ATTR_LOCAL_NAME);
  if (name && !name->empty() && (m_own.count(BT_ATTR_LOCAL_NAME) != 0 || *name == m_orderedName)) {
    m_own[BT_ATTR_LOCAL_NAME] = *name;
  }
}

void Attributes::Report(Attribute attribute) const {
  if (const std::optional<std::string> value = Find(attribute)) {
    m_context.Report(AttributeChanged{attribute, *value});
  }
}

void Attributes::ReportAll() const {
  for (const Attribute attribute :
       {BT_ATTR_LOCAL_NAME, BT_ATTR_LOCAL_ADDRESS, BT_ATTR_PIN_CODE, BT_ATTR_STACK_VERSION,
        BT_ATTR_CLASS_OF_DEVICE, BT_ATTR_DOWNLOAD_FOLDER}) {
    Report(attribute);
  }
}

}  // namespace btservice::bluez
