#ifndef SERVICE_BLUEZ_BUS_COMMANDQUEUE_H
#define SERVICE_BLUEZ_BUS_COMMANDQUEUE_H

#include <cstdint>
#include <deque>
#include <map>
#include <string>

#include "service/bluez/bus/Daemon.h"

namespace btservice::bluez {

/// The commands to a daemon, one at a time for each of its objects: it refuses a second one for the same
/// device or adapter as "in progress". Those of different objects do not wait for each other. Used on the
/// thread of the main loop.
class CommandQueue {
 public:
  /// How many commands for one object may wait; a daemon that hangs is not to use up the memory.
  static constexpr std::size_t kMostWaiting = 64;

  /// The daemon must outlive this. When it goes, all commands are forgotten.
  explicit CommandQueue(Daemon& daemon);
  CommandQueue(const CommandQueue&) = delete;
  CommandQueue& operator=(const CommandQueue&) = delete;

  /// Sends a command, as soon as those before it for this object were answered. done hears of its end, once
  /// and never inside this, but not if it was forgotten. False, and nothing is sent, if the daemon is not
  /// there or too many wait.
  bool Add(MethodCall command, ReplyHandler done);
  /// Forgets the commands for an object that is gone. One that was sent may still be carried out.
  void Forget(const std::string& path) { m_objects.erase(path); }

 private:
  struct Command {
    MethodCall call;
    ReplyHandler done;
  };
  struct Waiting {
    std::uint64_t underWay = 0;    ///< number of the command that was sent; 0: none
    std::deque<Command> commands;  ///< those after it
  };

  void SendNext(const std::string& path);
  void OnReply(const std::string& path, std::uint64_t number, const ReplyHandler& done, const Reply& reply);

  Daemon& m_daemon;
  std::uint64_t m_lastNumber = 0;
  std::map<std::string, Waiting> m_objects;
};

}  // namespace btservice::bluez

#endif
