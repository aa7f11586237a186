#ifndef SERVICE_SIMULATION_MUSIC_SIMULATEDMUSIC_H
#define SERVICE_SIMULATION_MUSIC_SIMULATEDMUSIC_H

#include <memory>

#include "service/stack/MusicControl.h"

namespace btservice {

class Browser;
class Player;

/// What passes the requests for music on to the parts of the model that carry them out, and which have to
/// outlive it. Commands reach the player a moment after the request.
std::unique_ptr<MusicControl> MakeSimulatedMusic(Player& player, Browser& browser);

}  // namespace btservice

#endif
