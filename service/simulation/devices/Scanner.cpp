#include "service/simulation/devices/Scanner.h"

namespace btservice {

Scanner::Scanner(ModelContext& context, DeviceTable& devices)
    : m_context(context), m_devices(devices), m_finds(context.scheduler), m_end(context.scheduler) {}

bool Scanner::Set(bool on) {
  if (on == m_end.IsRunning()) {
    return false;
  }
  if (on) {
    m_end.Start(m_context.delays.scanLength, [this] {
      m_finds.CancelAll();
      Report();
    });
    Milliseconds delay = m_context.delays.scanFirst;
    for (const auto& device : m_devices.All()) {
      m_finds.After(delay, [this, &found = *device] { Find(found); });
      delay += m_context.delays.scanNext;
    }
  } else {
    m_finds.CancelAll();
    m_end.Stop();
  }
  Report();
  return true;
}

void Scanner::Report() const {
  m_context.Report(ScanChanged{m_end.IsRunning() ? BT_SCAN_SCANNING : BT_SCAN_IDLE});
}

void Scanner::Find(RemoteDevice& device) {
  if (device.inRange) {
    device.found = true;
    m_context.Report(DeviceFound{device.data.address, device.data.name, device.data.support});
  }
}

}  // namespace btservice
