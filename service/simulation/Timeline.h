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

/// Something that happens by itself at some time. What a kind does not need is ignored.
struct Happening {
  Milliseconds at{0};     ///< from the start of the timeline
  Milliseconds every{0};  ///< 0: once
  HappeningKind kind = HappeningKind::ARRIVE;
  std::string device;  ///< its address
  std::string number;  ///< of the caller
  std::string text;    ///< of a message, the bytes of SERIAL, or the name of an operator
  std::string sender;  ///< of a message
  int bars = 0;        ///< of SIGNAL and BATTERY, from 0 to 5
  bool on = true;      ///< of ROAMING
  ProfileId profile = BT_PROFILE_HFP;
  CalledParty calledParty = CalledParty::ANSWERS;
  Milliseconds answersAfter{3000};
};

/// Makes things happen when their time comes, on the thread of the scheduler, as long as it lives. Scheduler
/// and outside must outlive it.
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
