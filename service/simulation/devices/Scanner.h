#ifndef SERVICE_SIMULATION_DEVICES_SCANNER_H
#define SERVICE_SIMULATION_DEVICES_SCANNER_H

#include "service/simulation/devices/DeviceTable.h"
#include "service/time/Timer.h"

namespace btservice {

/// The search for devices in range, which are found one after the other.
class Scanner {
 public:
  Scanner(ModelContext& context, DeviceTable& devices);

  /// Begins or ends a search: ScanChanged, and DeviceFound for each device in range, one after the other,
  /// also for those that were found before. It ends by itself (Delays). Refuses what is so already; power is
  /// the caller's affair.
  bool Set(bool on);
  /// Reports whether a search runs, for whoever comes late.
  void Report() const;

 private:
  void Find(RemoteDevice& device);

  ModelContext& m_context;
  DeviceTable& m_devices;
  TaskGroup m_finds;
  Timer m_end;
};

}  // namespace btservice

#endif
