#ifndef IPC_SESSIONBUSEXIT_H
#define IPC_SESSIONBUSEXIT_H

#include "ipc/BtProxy.h"

/// Keeps GLib from ending the process with its session bus. GLib raises SIGTERM when a process's shared
/// connection to the session bus closes, unless that is switched off on the connection ("exit-on-close"). An
/// application is to outlive its bus: its requests then fail, each with an error in the log.
///
/// Nothing here connects to a bus. While an object lives, no session bus that closes ends the process: a bus
/// can close before the attempt that has opened it returns, and another thread that runs the main loop would
/// end the process at once. What holds afterwards is what SwitchOff() has done.
class SessionBusExit {
 public:
  SessionBusExit();
  ~SessionBusExit();
  SessionBusExit(const SessionBusExit&) = delete;
  SessionBusExit& operator=(const SessionBusExit&) = delete;

  /// Switches exit-on-close off on the connection that an attempt to make a proxy has obtained: that of the
  /// proxy, or if there is no proxy, the one that is there although no proxy came of it. The latter is left
  /// out where GLib would have to launch a bus to answer: there, a bus that dies within the attempt is not
  /// covered.
  static void SwitchOff(ComZelkLinuxBluetooth* proxy);

 private:
  gulong m_hook;
};

#endif
