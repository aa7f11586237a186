#ifndef SERVICE_SIMULATION_DEVICES_CONNECTIONS_H
#define SERVICE_SIMULATION_DEVICES_CONNECTIONS_H

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "service/simulation/adapter/PowerSwitch.h"
#include "service/simulation/adapter/Settings.h"
#include "service/simulation/devices/DeviceTable.h"
#include "service/time/Timer.h"

namespace btservice {

/// The connections of profiles. A device is paged first; then its profiles connect one after the other, and
/// some bring others with them: hands-free the phone book and the messages, music the remote control.
class Connections {
 public:
  Connections(ModelContext& context, PowerSwitch& power, Settings& settings, DeviceTable& devices);

  // The requests of DeviceControl. True if it is taken on: power is on, and the device is paired, has the
  // profile and may use it; or there is something to disconnect. ConnectionChanged reports what comes of it.

  /// only: other devices are disconnected from the profile.
  bool Connect(RemoteDevice& device, ProfileId profile, bool only);
  /// As Connect, but for the device's own wish: pairing and permission are looked at, nothing else.
  bool ConnectFromRemote(RemoteDevice& device, ProfileId profile);
  bool Disconnect(RemoteDevice& device, ProfileId profile);
  /// Ends the link first if the profile is connected.
  bool Reconnect(RemoteDevice& device, ProfileId profile);
  void EnableAll();
  void Disable(RemoteDevice& device);

  /// Takes down all profiles of a device, without the way through DISCONNECTING.
  void Drop(RemoteDevice& device, ConnStatus status);
  /// The link breaks: everything ends as LINK_LOST, and comes back once the device is in range, if it may.
  void LoseLink(RemoteDevice& device);
  /// The device has come into range: it is connected if it may.
  void Arrive(RemoteDevice& device);
  /// Begins to connect the paired devices, as after power up.
  void ConnectPaired();

  /// The device whose connection counts: the one connected or made active last. Null if there is none.
  RemoteDevice* Active(ProfileId profile) const;
  /// Makes a connected device the one that counts.
  void Activate(RemoteDevice& device, ProfileId profile);
  /// That of the device that counts, or of one on the way to a connection or away from it.
  ConnectionState State(ProfileId profile) const;
  void ReportAll() const;

  /// A single profile got into a lasting state: CONNECTED, DISCONNECTED or LINK_LOST.
  Notifier<RemoteDevice&, ProfileId, ConnStatus> onChanged;

 private:
  /// What goes on between the adapter and one device.
  struct Link {
    explicit Link(Scheduler& scheduler) : step(scheduler), closing(scheduler), retry(scheduler) {}
    bool up = false;
    std::deque<ProfileId> waiting;
    Timer step;
    TaskGroup closing;
    Timer retry;
    std::set<ProfileId> wanted;  ///< to be had again once the device is in range
  };

  Link& LinkOf(RemoteDevice& device);
  void Enqueue(RemoteDevice& device, ProfileId profile);
  void NextStep(RemoteDevice& device);
  void Page(RemoteDevice& device);
  void FinishProfile(RemoteDevice& device);
  /// Tries in silence until the device is in reach again.
  void RetryLater(RemoteDevice& device);
  void DisconnectSingle(RemoteDevice& device, ProfileId profile);
  void Enter(RemoteDevice& device, ProfileId profile, ConnStatus status);

  ModelContext& m_context;
  PowerSwitch& m_power;
  Settings& m_settings;
  DeviceTable& m_devices;
  std::map<RemoteDevice*, std::unique_ptr<Link>> m_links;
  std::map<ProfileId, std::vector<RemoteDevice*>> m_connected;  ///< the active one last
};

}  // namespace btservice

#endif
