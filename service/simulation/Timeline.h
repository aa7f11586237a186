#ifndef SERVICE_SIMULATION_TIMELINE_H
#define SERVICE_SIMULATION_TIMELINE_H

#include <string>
#include <vector>

#include "service/simulation/Outside.h"
#include "service/time/Timer.h"

namespace btservice {

enum class HappeningKind {
  ARRIVE,  ///< the device comes into range
  LEAVE,   ///< and leaves it
  LOSE_LINK,
  REQUEST_PAIRING,
  REJECT_PAIRING,
  CONNECT,
  DISCONNECT,
  REQUEST_PROJECTION,
  CALL,
  ANSWER_CALL,
  HANG_UP,
  CALLED_PARTY,
  SIGNAL,
  BATTERY,
  OPERATOR,
  ROAMING,
  PLAY,
  PAUSE,
  MESSAGE,
  SERIAL
};

/// Something that happens by itself at some time.
struct Happening {
  Milliseconds at{0};
  Milliseconds every{0};  ///< 0: once
  HappeningKind kind = HappeningKind::ARRIVE;
  std::string device;
  std::string number;
  std::string text;
  std::string sender;
  int bars = 0;
  bool on = true;
  ProfileId profile = BT_PROFILE_HFP;
  CalledParty calledParty = CalledParty::ANSWERS;
  Milliseconds answersAfter{3000};
};

/// Makes things happen when their time comes.
class Timeline {
 public:
  Timeline(Scheduler& scheduler, Outside& outside) : m_outside(outside), m_tasks(scheduler) {}

  /// Times count from now. What cannot happen when its time comes is left out.
  void Start(const std::vector<Happening>& happenings);

 private:
  void Schedule(const Happening& happening, Milliseconds delay);
  bool Perform(const Happening& happening);

  Outside& m_outside;
  TaskGroup m_tasks;
  int m_lastMessage = 0;
};

}  // namespace btservice

#endif
