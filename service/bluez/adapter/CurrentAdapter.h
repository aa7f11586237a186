#ifndef SERVICE_BLUEZ_ADAPTER_CURRENTADAPTER_H
#define SERVICE_BLUEZ_ADAPTER_CURRENTADAPTER_H

#include <set>
#include <string>

#include "service/bluez/bus/CommandQueue.h"
#include "service/bluez/bus/ObjectMirror.h"
#include "service/time/Notifier.h"

namespace btservice::bluez {

/// The one adapter that the service drives: the first by its path (hci0 before hci1) when BlueZ comes, until
/// it is pulled out or the daemon goes; then the next that there is. Used on the thread of the main loop.
class CurrentAdapter : private MirrorListener {
 public:
  /// Both must outlive this.
  CurrentAdapter(ObjectMirror& mirror, CommandQueue& commands);

  bool IsThere() const { return !m_path.empty(); }
  /// Of the object: "/org/bluez/hci0"; empty if there is none.
  const std::string& Path() const { return m_path; }
  /// Whether an object, such as that of a device, belongs to this adapter.
  bool Has(const std::string& path) const { return IsThere() && path.rfind(m_path + "/", 0) == 0; }
  /// As BlueZ says them; all of them are nothing if there is no adapter.
  const Properties& Values() const;

  /// Orders a property to be set, or a method to be called. done hears of the end, unless the adapter goes
  /// before. Refused, with a line in the log, if there is no adapter, or too many commands wait.
  bool Set(const char* property, GVariant* value, ReplyHandler done = {});
  bool Call(const char* method, GVariant* arguments, ReplyHandler done = {});

  Notifier<> onCome;
  Notifier<> onGone;
  Notifier<const std::set<std::string>&> onChanged;  ///< these properties of it

 private:
  void OnAdded(const std::string& path, const std::string& interface) override;
  void OnRemoved(const std::string& path, const std::string& interface) override;
  void OnChanged(const std::string& path, const std::string& interface,
                 const std::set<std::string>& names) override;
  void Use(const std::string& path);
  bool Add(MethodCall command, ReplyHandler done);

  ObjectMirror& m_mirror;
  CommandQueue& m_commands;
  std::string m_path;
};

}  // namespace btservice::bluez

#endif
