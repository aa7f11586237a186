#ifndef SERVICE_SIMULATION_DEVICES_PAIRING_H
#define SERVICE_SIMULATION_DEVICES_PAIRING_H

#include <string>

#include "service/simulation/adapter/PowerSwitch.h"
#include "service/simulation/adapter/Settings.h"
#include "service/simulation/devices/DeviceTable.h"
#include "service/time/Timer.h"

namespace btservice {

/// Pairing, one device at a time: the page, the question to the user, the answer from the other side, and the
/// agreement on keys. Each request is false if it cannot be now; what comes of it is reported as PairChanged
/// and PairRequested.
class Pairing {
 public:
  Pairing(ModelContext& context, PowerSwitch& power, Settings& settings, DeviceTable& devices);

  /// Asked for here. pin is used by a device that needs one, and may be empty.
  bool Start(const std::string& address, const std::string& pin);
  /// Asked for by the device, which finds the adapter only while it is visible.
  bool StartFromRemote(RemoteDevice& device);
  /// For wireless projection.
  bool StartForProjection(RemoteDevice& device);

  /// The user's answer. False if that device does not ask, or not in this way.
  bool Accept(const std::string& address, const std::string& pin, PairRequestState state);
  bool Reject(const std::string& address, PairRequestState state);
  /// The person at the other device accepts what they are asked there; false if they are not asked.
  bool AcceptFromRemote(const RemoteDevice& device);
  /// The person at the other device refuses, or changes their mind.
  bool RejectFromRemote(const RemoteDevice& device);
  /// True if power is on and the address is one; OobLinkKeySet says whether it worked.
  bool SetOobLinkKey(const std::string& address, const Bytes& key);

  bool IsBusy() const { return m_stage != Stage::IDLE; }
  /// Reports the pairing that is under way, if there is one.
  void ReportUnderWay() const;
  /// The device is out of range: the pairing with it fails.
  void DeviceLost(const RemoteDevice& device);

 private:
  enum class Stage { IDLE, PAGING, ASKING, KEYS };

  void Begin(const std::string& address, const std::string& pin, bool projection);
  void Ask();
  bool IsAsking(const std::string& address, PairRequestState state) const;
  bool IsUnderWayWith(const RemoteDevice& device) const;
  void CheckAnswers();
  void Finish(const std::string& pin);
  void Fail(PairFailedReson reason);
  void Report(PairStatus status, PairFailedReson reason) const;
  std::string SixDigits();

  ModelContext& m_context;
  PowerSwitch& m_power;
  Settings& m_settings;
  DeviceTable& m_devices;

  Stage m_stage = Stage::IDLE;
  std::string m_address;
  std::string m_pin;
  bool m_projection = false;
  bool m_acceptedHere = false;
  bool m_acceptedThere = false;
  TaskGroup m_tasks;
  TaskGroup m_oobTasks;
};

}  // namespace btservice

#endif
