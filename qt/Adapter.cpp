#include "Adapter.h"

#include "BtService.h"
#include "Changes.h"
#include "Texts.h"

namespace btqt {
namespace {

static_assert(static_cast<int>(btasync::BT_POWER_ON) == Adapter::PowerOn &&
                  static_cast<int>(btasync::BT_POWER_TURNING_ON) == Adapter::PowerTurningOn,
              "the states have the numbers of libbtasync's");

}  // namespace

Adapter::Adapter(BtService& service) : Subject(service, btasync::PART_ADAPTER) {
  show(now(), btasync::PART_ADAPTER);
}

void Adapter::show(const btasync::State& state, unsigned /*parts*/) {
  const btasync::AdapterState& adapter = state.adapter;
  Changes changes(*this);
  changes.set(m_power, static_cast<Power>(adapter.power), &Adapter::powerChanged);
  changes.set(m_name, toQt(adapter.name), &Adapter::nameChanged);
  changes.set(m_address, toQt(adapter.address), &Adapter::addressChanged);
  changes.set(m_isDiscoverable, adapter.discoverable, &Adapter::discoverableChanged);
  changes.set(m_isScanning, adapter.scanning, &Adapter::scanningChanged);
  setFresh(changes, adapter.fresh);
}

void Adapter::setPower(bool on, Operation* operation) { ask(service().SetPower(on), operation); }

void Adapter::setName(const QString& name, Operation* operation) {
  ask(service().SetAttribute(btasync::BT_ATTR_LOCAL_NAME, name.toStdString()), operation);
}

void Adapter::setDiscoverable(bool on, Operation* operation) {
  ask(service().SetCapability(btasync::BT_CAP_ENABLE_SCAN, on), operation);
}

void Adapter::startScan(Operation* operation) { ask(service().SetScanAction(true), operation); }

void Adapter::stopScan(Operation* operation) { ask(service().SetScanAction(false), operation); }

}  // namespace btqt
