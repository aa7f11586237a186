#ifndef TOOLS_BTCTL_CLI_JOBCONTROL_H
#define TOOLS_BTCTL_CLI_JOBCONTROL_H

#include <functional>

#include "glib/OwnedId.h"

namespace btctl {

/// Ctrl-Z and what comes after it, for a program that has changed how its terminal behaves. Called on the
/// thread of the main loop. There is one in a process.
class JobControl {
 public:
  using Reaction = std::function<void()>;

  /// `leave` is called before the program is stopped by Ctrl-Z, `comeBack` whenever it goes on, whatever
  /// stopped it.
  JobControl(Reaction leave, Reaction comeBack);
  ~JobControl();
  JobControl(const JobControl&) = delete;
  JobControl& operator=(const JobControl&) = delete;

 private:
  void Take(char signal);

  const Reaction m_leave;
  const Reaction m_comeBack;
  const OwnedSourceId m_signals;
};

}  // namespace btctl

#endif
