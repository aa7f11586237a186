#ifndef SERVICE_BLUEZ_BUS_OBJECTMIRROR_H
#define SERVICE_BLUEZ_BUS_OBJECTMIRROR_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "service/bluez/bus/Daemon.h"
#include "service/bluez/bus/Properties.h"
#include "service/time/Timer.h"

namespace btservice::bluez {

/// What hears of the objects in a mirror: on the thread of the main loop, when the mirror shows the change.
class MirrorListener {
 public:
  virtual ~MirrorListener() = default;
  /// An object has this interface from now on. When the daemon comes, this comes for all that there is, in
  /// the order of the paths.
  virtual void OnAdded(const std::string& /*path*/, const std::string& /*interface*/) {}
  /// It no longer has: it was removed, or the daemon or the bus is gone, in which case this comes for all
  /// that there was.
  virtual void OnRemoved(const std::string& /*path*/, const std::string& /*interface*/) {}
  /// These properties of it have other values, or none.
  virtual void OnChanged(const std::string& /*path*/, const std::string& /*interface*/,
                         const std::set<std::string>& /*names*/) {}
};

/// All objects of a daemon with their properties, as org.freedesktop.DBus.ObjectManager at "/" reports them,
/// so that every question can be answered at once. Empty while the daemon is not there, or hangs before it
/// has said what there is. What makes no sense is left out with a line in the log; a daemon that gives no
/// list of its objects is asked again every few seconds. Used on the thread of the main loop.
class ObjectMirror {
 public:
  /// Both must outlive this. Only interfaces whose name begins with `prefix` are kept.
  ObjectMirror(Daemon& daemon, Scheduler& scheduler, std::string prefix);
  ObjectMirror(const ObjectMirror&) = delete;
  ObjectMirror& operator=(const ObjectMirror&) = delete;

  /// Listeners are called in the order in which they were added, and must live as long as the mirror.
  void Add(MirrorListener& listener) { m_listeners.push_back(&listener); }

  /// Null if there is no such object, or it has no such interface. Good until the daemon removes it: not
  /// longer than until the main loop runs again.
  const Properties* Find(const std::string& path, const std::string& interface) const;
  /// The paths of the objects with this interface, in their order.
  std::vector<std::string> PathsWith(const std::string& interface) const;

 private:
  using Interfaces = std::map<std::string, Properties>;

  void Ask();
  void OnObjects(const Reply& reply);
  void OnSignal(const DaemonSignal& signal);
  void OnPropertiesChanged(const DaemonSignal& signal);
  void TakeAll(GVariant* objects);
  void TakeObject(const std::string& path, GVariant* interfaces);
  void Remove(const std::string& path, const std::vector<std::string>& interfaces);
  void Clear();

  Daemon& m_daemon;
  const std::string m_prefix;
  Timer m_retry;
  unsigned m_asked = 0;    ///< counts the daemons, of which an earlier one may answer late
  bool m_isKnown = false;  ///< what there is: signals before that say nothing new
  bool m_isFull = false;   ///< has been said in the log
  std::string m_problem;   ///< the last that the log has said
  std::map<std::string, Interfaces> m_objects;
  std::vector<MirrorListener*> m_listeners;
};

}  // namespace btservice::bluez

#endif
