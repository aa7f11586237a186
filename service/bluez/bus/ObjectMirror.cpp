#include "service/bluez/bus/ObjectMirror.h"

#include <utility>

#define MWP_LOG_SOURCE "service/bluez/bus/ObjectMirror"
#include <mwp/MWPLog.h>

#include "service/files/Quote.h"

namespace btservice::bluez {
namespace {

constexpr const char* kObjectManager = "org.freedesktop.DBus.ObjectManager";
constexpr const char* kPropertiesInterface = "org.freedesktop.DBus.Properties";
constexpr Milliseconds kAnswer{25000};
constexpr Milliseconds kAskAgain{3000};
/// Far more than devices around a car: a daemon that says so is not to use up the memory.
constexpr std::size_t kMostObjects = 5000;

bool IsOf(const DaemonSignal& signal, const char* interface, const char* name, const char* types) {
  return signal.interface == interface && signal.name == name &&
         g_variant_is_of_type(signal.values, G_VARIANT_TYPE(types)) != FALSE;
}

Properties TakeProperties(GVariant* values) {
  Properties properties;
  GVariantIter iter;
  g_variant_iter_init(&iter, values);
  const gchar* name = nullptr;
  GVariant* value = nullptr;
  while (g_variant_iter_next(&iter, "{&sv}", &name, &value) != FALSE) {
    properties.Set(name, OwnedVariant(value));
  }
  return properties;
}

}  // namespace

ObjectMirror::ObjectMirror(Daemon& daemon, Scheduler& scheduler, std::string prefix)
    : m_daemon(daemon), m_prefix(std::move(prefix)), m_retry(scheduler) {
  m_daemon.onCome.Add([this] { Ask(); });
  m_daemon.onGone.Add([this] { Clear(); });
  m_daemon.onSignal.Add([this](const DaemonSignal& signal) { OnSignal(signal); });
}

const Properties* ObjectMirror::Find(const std::string& path, const std::string& interface) const {
  const auto object = m_objects.find(path);
  if (object == m_objects.end()) {
    return nullptr;
  }
  const auto found = object->second.find(interface);
  return found != object->second.end() ? &found->second : nullptr;
}

std::vector<std::string> ObjectMirror::PathsWith(const std::string& interface) const {
  std::vector<std::string> paths;
  for (const auto& [path, interfaces] : m_objects) {
    if (interfaces.count(interface) != 0) {
      paths.push_back(path);
    }
  }
  return paths;
}

void ObjectMirror::Ask() {
  const unsigned asked = ++m_asked;
  m_daemon.Call({"/", kObjectManager, "GetManagedObjects", {}, kAnswer}, G_VARIANT_TYPE("(a{oa{sa{sv}}})"),
                [this, asked](const Reply& reply) {
                  if (asked == m_asked) {
                    OnObjects(reply);
                  }
                });
}

void ObjectMirror::OnObjects(const Reply& reply) {
  if (reply.Worked()) {
    const OwnedVariant objects(g_variant_get_child_value(reply.values.get(), 0));
    TakeAll(objects.get());
    return;
  }
  if (std::exchange(m_problem, reply.error) != reply.error) {
    MWP_LOG(MWP_LOG_ERROR, "%s does not say what objects it has: %s", m_daemon.Name().c_str(),
            Visible(reply.error).c_str());
  }
  m_retry.Start(kAskAgain, [this] { Ask(); });
}

void ObjectMirror::TakeAll(GVariant* objects) {
  m_isKnown = true;
  m_problem.clear();
  GVariantIter iter;
  g_variant_iter_init(&iter, objects);
  const gchar* name = nullptr;
  GVariant* interfacesOfName = nullptr;
  std::map<std::string, OwnedVariant> inOrder;  // a daemon lists them in any
  while (g_variant_iter_next(&iter, "{&o@a{sa{sv}}}", &name, &interfacesOfName) != FALSE) {
    inOrder[name] = OwnedVariant(interfacesOfName);
  }
  for (const auto& [path, interfaces] : inOrder) {
    TakeObject(path, interfaces.get());
  }
}

void ObjectMirror::TakeObject(const std::string& path, GVariant* interfaces) {
  if (m_objects.size() >= kMostObjects && m_objects.count(path) == 0) {
    if (!std::exchange(m_isFull, true)) {
      MWP_LOG(MWP_LOG_WARNING, "%s has more than %zu objects; the rest is left out", m_daemon.Name().c_str(),
              kMostObjects);
    }
    return;
  }
  GVariantIter iter;
  g_variant_iter_init(&iter, interfaces);
  const gchar* name = nullptr;
  GVariant* values = nullptr;
  while (g_variant_iter_next(&iter, "{&s@a{sv}}", &name, &values) != FALSE) {
    const OwnedVariant owned(values);
    const std::string interface = name;
    if (interface.rfind(m_prefix, 0) == 0) {
      m_objects[path][interface] = TakeProperties(values);
      for (MirrorListener* const listener : m_listeners) {
        listener->OnAdded(path, interface);
      }
    }
  }
}

void ObjectMirror::OnSignal(const DaemonSignal& signal) {
  if (!m_isKnown) {
    return;
  }
  if (IsOf(signal, kPropertiesInterface, "PropertiesChanged", "(sa{sv}as)")) {
    OnPropertiesChanged(signal);
  } else if (IsOf(signal, kObjectManager, "InterfacesAdded", "(oa{sa{sv}})")) {
    const gchar* path = nullptr;
    GVariant* interfaces = nullptr;
    g_variant_get(signal.values, "(&o@a{sa{sv}})", &path, &interfaces);
    const OwnedVariant owned(interfaces);
    TakeObject(path, interfaces);
  } else if (IsOf(signal, kObjectManager, "InterfacesRemoved", "(oas)")) {
    const gchar* path = nullptr;
    const gchar** names = nullptr;
    g_variant_get(signal.values, "(&o^a&s)", &path, &names);
    const OwnedMemory<const gchar*> owned(names);
    std::vector<std::string> interfaces;
    for (const gchar** name = names; *name != nullptr; ++name) {
      interfaces.emplace_back(*name);
    }
    Remove(path, interfaces);
  }
}

void ObjectMirror::OnPropertiesChanged(const DaemonSignal& signal) {
  const OwnedVariant interface(g_variant_get_child_value(signal.values, 0));
  const OwnedVariant values(g_variant_get_child_value(signal.values, 1));
  const OwnedVariant without(g_variant_get_child_value(signal.values, 2));
  const std::string name = g_variant_get_string(interface.get(), nullptr);
  const auto object = m_objects.find(signal.path);
  if (object == m_objects.end() || object->second.count(name) == 0) {
    return;
  }
  Properties& properties = object->second[name];
  std::set<std::string> changed;
  GVariantIter iter;
  g_variant_iter_init(&iter, values.get());
  const gchar* property = nullptr;
  GVariant* value = nullptr;
  while (g_variant_iter_next(&iter, "{&sv}", &property, &value) != FALSE) {
    properties.Set(property, OwnedVariant(value));
    changed.insert(property);
  }
  g_variant_iter_init(&iter, without.get());
  while (g_variant_iter_next(&iter, "&s", &property) != FALSE) {
    properties.Remove(property);
    changed.insert(property);
  }
  for (MirrorListener* const listener : m_listeners) {
    listener->OnChanged(signal.path, name, changed);
  }
}

void ObjectMirror::Remove(const std::string& path, const std::vector<std::string>& interfaces) {
  const auto object = m_objects.find(path);
  if (object == m_objects.end()) {
    return;
  }
  std::vector<std::string> removed;
  for (const std::string& interface : interfaces) {
    if (object->second.erase(interface) != 0) {
      removed.push_back(interface);
    }
  }
  if (object->second.empty()) {
    m_objects.erase(object);
  }
  for (const std::string& interface : removed) {
    for (MirrorListener* const listener : m_listeners) {
      listener->OnRemoved(path, interface);
    }
  }
}

void ObjectMirror::Clear() {
  ++m_asked;
  m_isKnown = false;
  m_isFull = false;
  m_problem.clear();
  m_retry.Stop();
  while (!m_objects.empty()) {
    // What was found by an adapter goes before the adapter: its path is longer, and so comes later.
    const auto& [path, interfaces] = *m_objects.rbegin();
    std::vector<std::string> names;
    for (const auto& [name, properties] : interfaces) {
      names.push_back(name);
    }
    Remove(std::string(path), names);
  }
}

}  // namespace btservice::bluez
