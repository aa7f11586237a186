#ifndef SERVICE_SIMULATION_OUTSIDE_H
#define SERVICE_SIMULATION_OUTSIDE_H

#include <string>
#include <vector>

#include "service/simulation/calls/CallTable.h"
#include "service/simulation/calls/PhoneStatus.h"
#include "service/simulation/devices/Pairing.h"
#include "service/simulation/devices/Projection.h"
#include "service/simulation/messages/Messages.h"
#include "service/simulation/music/Player.h"
#include "service/simulation/serial/SimulatedSerial.h"

namespace btservice {

/// What can happen outside of the head unit: at the phones, with their owners, on the air. Each returns false
/// if it cannot happen: there is no such device, it is not connected, nobody calls. What comes of it is
/// reported by the stack, as if it had happened by itself, some of it before the function returns. The
/// timeline of a world and the controls on the bus come here, on the thread of the stack. Nothing is thrown.
/// Addresses may be in upper or lower case; one that no device has is "no such device".
class Outside {
 public:
  Outside(DeviceTable& devices, Connections& connections, Pairing& pairing, Projection& projection,
          PhoneStatus& phoneStatus, CallTable& calls, Player& player, Messages& messages,
          SimulatedSerial& serial);

  /// A device as it is seen from outside.
  struct Glimpse {
    std::string address;
    std::string name;
    bool inRange;
    bool paired;
    bool connected;
  };
  std::vector<Glimpse> Devices() const;
  /// How many contacts all devices have together.
  std::size_t ContactCount() const;
  /// How many of them SetContacts would replace at this device.
  std::size_t ReplaceableContactCount(const std::string& address) const;

  /// A device that was not there before. False if its address is in use, or is none.
  bool AddDevice(const DeviceData& data);
  /// A device comes into range, or leaves it: then its link is lost.
  bool SetInRange(const std::string& address, bool inRange);
  /// The link breaks although the device is near; it can be had again.
  bool LoseLink(const std::string& address);
  /// The device asks to be paired.
  bool RequestPairing(const std::string& address);
  /// The person at the device accepts the pairing under way, or refuses it. One who does neither answers
  /// after a while as the device's data say.
  bool AcceptPairing(const std::string& address);
  bool RejectPairing(const std::string& address);
  /// The device, or its owner, wants a profile connected or disconnected.
  bool RequestConnection(const std::string& address, ProfileId profile);
  bool RequestDisconnection(const std::string& address, ProfileId profile);
  /// The phone asks for wireless projection.
  bool RequestProjection(const std::string& address);

  // The phone has another network, or less of it. Bars are from 0 to 5; no name: the network is lost. Also
  // possible while the phone is not connected: it is reported once it is.

  bool SetSignal(const std::string& address, int bars);
  bool SetBattery(const std::string& address, int bars);
  bool SetOperator(const std::string& address, const std::string& name);
  bool SetRoaming(const std::string& address, bool roaming);

  /// Somebody calls the phone. It must be connected for calls, with fewer than three calls of which none
  /// rings or waits. number may be empty.
  bool Call(const std::string& address, const std::string& number);
  /// Whoever was called from here answers.
  bool AnswerCall(const std::string& address);
  /// Somebody at the other end hangs up; callId 0: all of them.
  bool HangUp(const std::string& address, int callId);
  /// How those behave who are called from here; answersAfter: how long it rings there. From the next call on.
  bool SetCalledParty(const std::string& address, CalledParty party, Milliseconds answersAfter);

  /// The phone's contacts, all of them anew; their ids are to be different. A download under way still gives
  /// those of before; what was downloaded stays until the next download.
  bool SetContacts(const std::string& address, std::vector<Contact> contacts);
  /// Adds a call to the phone's own log, as its latest.
  bool AddCallLog(const std::string& address, const CallLogEntry& entry);

  /// The tracks of the device's player, all of them anew; none: it stops.
  bool SetTracks(const std::string& address, std::vector<TrackData> tracks);
  /// Its owner presses a key of the player; false if that is not connected. The one that begins to play is
  /// the one in use.
  bool Play(const std::string& address);
  bool Pause(const std::string& address);

  /// The phone gets a message. It keeps it also if it is not connected and the result is false.
  bool SendMessage(const std::string& address, const MessageData& message);
  /// Something else happens to a message that the phone has: it is sent, deleted or the like.
  bool ChangeMessage(const std::string& address, const std::string& handle, MsgStatus status);
  /// The phone reports that a message was marked, or could not be.
  bool SetMessageProperty(const std::string& address, const std::string& handle, bool success);
  /// The device sends bytes over its serial channel.
  bool SendSerial(const std::string& address, const Bytes& data);

 private:
  /// Runs action with the device, if there is one.
  template <typename Action>
  bool With(const std::string& address, Action action) const;

  DeviceTable& m_devices;
  Connections& m_connections;
  Pairing& m_pairing;
  Projection& m_projection;
  PhoneStatus& m_phoneStatus;
  CallTable& m_calls;
  Player& m_player;
  Messages& m_messages;
  SimulatedSerial& m_serial;
};

}  // namespace btservice

#endif
