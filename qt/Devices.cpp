#include "Devices.h"

#include <QThread>
#include <algorithm>
#include <iterator>

#include <btasync/Outcome.h>

#include "BtService.h"
#include "Changes.h"
#include "KeyedModel.h"
#include "Texts.h"

namespace btqt {
namespace {

constexpr unsigned kParts = btasync::PART_PAIRED | btasync::PART_FOUND | btasync::PART_PAIRING;

static_assert(static_cast<int>(btasync::BT_SUPPORT_SERIAL_ACCESSORY) == Devices::SerialAccessory &&
                  static_cast<int>(btasync::BT_CONN_CONNECTED) == Devices::Connected &&
                  static_cast<int>(btasync::BT_CONN_UNKNOWN) == Devices::Unknown &&
                  static_cast<int>(btasync::BT_PROFILE_HFP_A2DP) == Devices::HfpAndA2dp &&
                  static_cast<int>(btasync::BT_PROFILE_GATT) == Devices::Gatt &&
                  static_cast<int>(btasync::BT_PAIR_REASON_AUTHENTICATION) == Devices::Authentication &&
                  static_cast<int>(btasync::BT_PAIR_REASON_BUSY) == Devices::Busy,
              "they have the numbers of libbtasync's");

template <btasync::ProfileId profile>
QVariant statusOf(const btasync::PairedDevice& device) {
  return static_cast<int>(device.StatusOf(profile));
}

bool isConnected(const btasync::PairedDevice& device) {
  return std::any_of(device.connections.begin(), device.connections.end(),
                     [](const auto& connection) { return connection.status == btasync::BT_CONN_CONNECTED; });
}

Devices::PairFailure failureOf(const btasync::PairingState& pairing) {
  if (!pairing.failed) {
    return Devices::NoFailure;
  }
  const int reason = pairing.failed->reason;
  return reason > Devices::NoFailure && reason < Devices::UnknownFailure
             ? static_cast<Devices::PairFailure>(reason)
             : Devices::UnknownFailure;
}

template <typename Device>
QString keyOfDevice(const Device& device) {
  return keyOf(device.address);
}
template <typename Device>
QVariant addressOf(const Device& device) {
  return toQt(device.address);
}
template <typename Device>
QVariant nameOfDevice(const Device& device) {
  return toQt(device.name);
}
template <typename Device>
QVariant supportOf(const Device& device) {
  return static_cast<int>(device.support);
}

bool isSame(const btasync::PairRequested& one, const btasync::PairRequested& other) {
  return one.address == other.address && one.digits == other.digits &&
         one.forProjection == other.forProjection && one.question == other.question;
}

}  // namespace

Devices::Devices(BtService& service)
    : Subject(service, kParts),
      m_paired(new KeyedModel<btasync::PairedDevice>(
          keyOfDevice<btasync::PairedDevice>,
          {{"address", addressOf<btasync::PairedDevice>},
           {"name", nameOfDevice<btasync::PairedDevice>},
           {"support", supportOf<btasync::PairedDevice>},
           {"connected", [](const btasync::PairedDevice& device) { return QVariant(isConnected(device)); }},
           {"hfp", statusOf<btasync::BT_PROFILE_HFP>},
           {"a2dp", statusOf<btasync::BT_PROFILE_A2DP>},
           {"avrcp", statusOf<btasync::BT_PROFILE_AVRCP>},
           {"pbap", statusOf<btasync::BT_PROFILE_PBAP>},
           {"map", statusOf<btasync::BT_PROFILE_MAP>},
           {"spp", statusOf<btasync::BT_PROFILE_SPP>},
           {"hid", statusOf<btasync::BT_PROFILE_HID>},
           {"pan", statusOf<btasync::BT_PROFILE_PAN>}},
          this)),
      m_found(new KeyedModel<btasync::DeviceFound>(keyOfDevice<btasync::DeviceFound>,
                                                   {{"address", addressOf<btasync::DeviceFound>},
                                                    {"name", nameOfDevice<btasync::DeviceFound>},
                                                    {"support", supportOf<btasync::DeviceFound>}},
                                                   this)) {
  show(now(), kParts);
}

Devices::~Devices() = default;

RowsModel* Devices::paired() const { return m_paired; }

RowsModel* Devices::found() const { return m_found; }

void Devices::show(const btasync::State& state, unsigned parts) {
  if ((parts & btasync::PART_PAIRED) != 0) {
    showPaired(state.paired);
  }
  if ((parts & (btasync::PART_FOUND | btasync::PART_PAIRED)) != 0) {
    showFound(state);
  }
  if ((parts & btasync::PART_PAIRING) != 0) {
    showPairing(state);
  }
  Changes changes(*this);
  setFresh(changes, state.paired.fresh && state.found.fresh && state.pairing.fresh);
}

void Devices::showPaired(const btasync::PairedState& paired) { m_paired->setRows(toRows(paired.devices)); }

void Devices::showFound(const btasync::State& state) {
  // A search finds paired devices as well.
  const auto& paired = state.paired.devices;
  std::vector<btasync::DeviceFound> others;
  std::copy_if(state.found.devices.begin(), state.found.devices.end(), std::back_inserter(others),
               [&](const btasync::DeviceFound& found) {
                 return std::none_of(paired.begin(), paired.end(),
                                     [&](const auto& device) { return device.address == found.address; });
               });
  m_found->setRows(toRows(others));
}

void Devices::showPairing(const btasync::State& state) {
  const btasync::PairingState& pairing = state.pairing;
  Changes changes(*this);
  changes.set(m_pairFailure, failureOf(pairing), &Devices::pairFailureChanged);
  changes.set(m_pairing, pairing.underWay ? toQt(*pairing.underWay) : QString(), &Devices::pairingChanged);
  if (pairing.question && m_question != nullptr && isSame(*pairing.question, m_asked)) {
    return;
  }
  PairingQuestion* const before = m_question;
  m_question = nullptr;
  if (pairing.question) {
    m_asked = *pairing.question;
    m_question = new PairingQuestion(service(), m_asked, nameOf(m_asked.address), this);
  }
  if (m_question != before) {
    changes.add(&Devices::questionChanged);
  }
  if (before != nullptr) {
    before->deleteLater();
  }
}

QString Devices::nameOf(const btasync::Address& address) const {
  const auto isIt = [&](const auto& device) { return device.address == address; };
  const auto& found = now().found.devices;
  const auto asFound = std::find_if(found.begin(), found.end(), isIt);
  if (asFound != found.end()) {
    return toQt(asFound->name);
  }
  const auto& paired = now().paired.devices;
  const auto asPaired = std::find_if(paired.begin(), paired.end(), isIt);
  return asPaired != paired.end() ? toQt(asPaired->name) : QString();
}

void Devices::pair(const QString& address, Operation* operation) {
  // If the service refuses it at once, no event reports that: the reason of the one before must not stand for
  // it.
  if (QThread::currentThread() == thread()) {
    Changes(*this).set(m_pairFailure, NoFailure, &Devices::pairFailureChanged);
  }
  ask(btasync::PairDevice(service(), toAddress(address)), operation);
}

void Devices::connect(const QString& address, Operation* operation) {
  connectProfile(address, HfpAndA2dp, operation);
}

void Devices::connectProfile(const QString& address, Profile profile, Operation* operation) {
  ask(btasync::ConnectDevice(service(), toAddress(address), static_cast<btasync::ProfileId>(profile)),
      operation);
}

void Devices::disconnect(const QString& address, Operation* operation) {
  disconnectProfile(address, HfpAndA2dp, operation);
}

void Devices::disconnectProfile(const QString& address, Profile profile, Operation* operation) {
  ask(btasync::DisconnectDevice(service(), toAddress(address), static_cast<btasync::ProfileId>(profile)),
      operation);
}

void Devices::remove(const QString& address, Operation* operation) {
  ask(service().DeletePairedDevice(toAddress(address)), operation);
}

void Devices::removeAll(Operation* operation) { ask(service().DeletePairedDevices(), operation); }

void Devices::move(const QString& address, int row, Operation* operation) {
  ask(service().MovePairedDevice(toAddress(address), row), operation);
  // No event reports the order. The service does one thing after the other: once it has answered this, the
  // list has the new order, whoever follows the move.
  service().GetPairedDeviceIndex(toAddress(address)).Then(m_scope, [this](const btasync::Answer<int>&) {
    owner().refresh(btasync::PART_PAIRED);
  });
}

}  // namespace btqt
