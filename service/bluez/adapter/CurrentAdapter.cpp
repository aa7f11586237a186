#include "service/bluez/adapter/CurrentAdapter.h"

#include <utility>
#include <vector>

#include "service/bluez/BluezNames.h"
#include "service/bluez/Refusal.h"

namespace btservice::bluez {

CurrentAdapter::CurrentAdapter(ObjectMirror& mirror, CommandQueue& commands)
    : m_mirror(mirror), m_commands(commands) {
  m_mirror.Add(*this);
}

const Properties& CurrentAdapter::Values() const {
  static const Properties kNone;
  const Properties* const values = m_mirror.Find(m_path, kAdapterInterface);
  return values != nullptr ? *values : kNone;
}

bool CurrentAdapter::Set(const char* property, GVariant* value, ReplyHandler done) {
  return Add({m_path, "org.freedesktop.DBus.Properties", "Set",
              OwnedVariant(g_variant_new("(ssv)", kAdapterInterface, property, value))},
             std::move(done));
}

bool CurrentAdapter::Call(const char* method, GVariant* arguments, ReplyHandler done) {
  return Add({m_path, kAdapterInterface, method, OwnedVariant(arguments)}, std::move(done));
}

bool CurrentAdapter::Add(MethodCall command, ReplyHandler done) {
  if (!IsThere()) {
    return Refuse(command.method.c_str(), "there is no Bluetooth adapter");
  }
  return m_commands.Add(std::move(command), std::move(done));
}

void CurrentAdapter::Use(const std::string& path) {
  m_path = path;
  onCome();
}

void CurrentAdapter::OnAdded(const std::string& path, const std::string& interface) {
  if (interface == kAdapterInterface && !IsThere()) {
    Use(path);
  }
}

void CurrentAdapter::OnRemoved(const std::string& path, const std::string& interface) {
  if (interface != kAdapterInterface || path != m_path) {
    return;
  }
  m_commands.Forget(m_path);
  m_path.clear();
  onGone();
  const std::vector<std::string> others = m_mirror.PathsWith(kAdapterInterface);
  if (!others.empty()) {
    Use(others.front());
  }
}

void CurrentAdapter::OnChanged(const std::string& path, const std::string& interface,
                               const std::set<std::string>& names) {
  if (interface == kAdapterInterface && path == m_path) {
    onChanged(names);
  }
}

}  // namespace btservice::bluez
