#include "Network.h"

#include "BtService.h"
#include "Changes.h"
#include "Texts.h"

namespace btqt {

Network::Network(BtService& service) : Subject(service, btasync::PART_NETWORK) {
  show(now(), btasync::PART_NETWORK);
}

void Network::show(const btasync::State& state, unsigned /*parts*/) {
  const btasync::NetworkState& network = state.network;
  Changes changes(*this);
  const bool isConnected = network.phone.status == btasync::BT_CONN_CONNECTED;
  changes.set(m_phone, isConnected ? toQt(network.phone.address) : QString(), &Network::phoneChanged);
  changes.set(m_isAvailable, network.available, &Network::availableChanged);
  changes.set(m_operatorName, toQt(network.operatorName), &Network::operatorNameChanged);
  changes.set(m_signal, network.signal, &Network::signalChanged);
  changes.set(m_isRoaming, network.roaming, &Network::roamingChanged);
  changes.set(m_battery, network.battery, &Network::batteryChanged);
  setFresh(changes, network.fresh);
}

}  // namespace btqt
