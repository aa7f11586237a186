#ifndef SERVICE_SIMULATION_WORLD_DELAYS_H
#define SERVICE_SIMULATION_WORLD_DELAYS_H

#include "service/time/Scheduler.h"

namespace btservice {

/// How long things take in the simulated world. As on the road, but on the short side.
struct Delays {
  Milliseconds powerOn{300};
  Milliseconds powerOff{200};
  Milliseconds scanFirst{400};     ///< from the start of a search to the first device found
  Milliseconds scanNext{250};      ///< from one device found to the next
  Milliseconds scanLength{10000};  ///< a search ends by itself
  Milliseconds page{500};          ///< a device in range answers
  Milliseconds pageTimeout{2000};  ///< a device out of range does not
  Milliseconds profile{200};       ///< connecting one profile
  Milliseconds disconnect{100};
  Milliseconds reconnect{3000};    ///< from a lost link to the attempt to have it back
  Milliseconds pairKeys{600};      ///< agreeing on keys once both sides have accepted
  Milliseconds pairRemote{800};    ///< the person at the other device makes up their mind
  Milliseconds pairAnswer{30000};  ///< nobody answers a pairing request
  Milliseconds autoAnswerPair{300};
  Milliseconds oobKey{200};
  Milliseconds projection{300};
  Milliseconds deletePairing{100};

  Milliseconds dial{400};  ///< from dialing to ringing at the other end
  Milliseconds hangUp{100};
  Milliseconds autoAnswer{2000};
  Milliseconds ringTimeout{30000};  ///< nobody accepts an incoming call
  Milliseconds callAudio{150};
  Milliseconds callTick{1000};
  Milliseconds voice{200};

  Milliseconds playerReply{80};  ///< the player obeys a command
  Milliseconds browse{150};      ///< a folder is listed
  Milliseconds cover{700};       ///< a cover image arrives
  Milliseconds positionTick{1000};

  Milliseconds downloadStart{300};
  Milliseconds downloadStep{100};
  int downloadStepSize = 25;  ///< entries that arrive in a step
  Milliseconds phoneBookEdit{50};

  Milliseconds serialReply{50};
  Milliseconds hidCalibration{400};
  Milliseconds messageStep{50};
};

}  // namespace btservice

#endif
