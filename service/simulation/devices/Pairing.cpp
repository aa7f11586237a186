#include "service/simulation/devices/Pairing.h"

#include "protocol/Address.h"

namespace btservice {
namespace {

constexpr std::size_t kLinkKeySize = 16;

}  // namespace

Pairing::Pairing(ModelContext& context, PowerSwitch& power, Settings& settings, DeviceTable& devices)
    : m_context(context),
      m_power(power),
      m_settings(settings),
      m_devices(devices),
      m_tasks(context.scheduler),
      m_oobTasks(context.scheduler) {
  m_power.onDown.Add([this] {
    m_oobTasks.CancelAll();
    if (IsBusy()) {
      Fail(BT_PAIR_REASON_REJECTED_LOCAL);
    }
  });
}

bool Pairing::Start(const std::string& address, const std::string& pin) {
  if (!m_power.IsOn() || !IsBluetoothAddress(address) || IsBusy()) {
    return false;
  }
  const RemoteDevice* const device = m_devices.Find(address);
  if (device != nullptr && device->paired) {
    return false;
  }
  Begin(ReportedAddress(address), pin, false);
  m_stage = Stage::PAGING;
  const bool answers = device != nullptr && device->inRange;
  m_tasks.After(answers ? m_context.delays.page : m_context.delays.pageTimeout, [this, answers] {
    if (answers) {
      Ask();
    } else {
      Fail(BT_PAIR_REASON_UNREACHABLE);
    }
  });
  return true;
}

bool Pairing::StartFromRemote(RemoteDevice& device) {
  if (!m_power.IsOn() || !m_settings.IsOn(BT_CAP_ENABLE_SCAN) || !device.inRange || device.paired ||
      IsBusy()) {
    return false;
  }
  device.found = true;
  Begin(device.data.address, "", false);
  Ask();
  return true;
}

bool Pairing::StartForProjection(RemoteDevice& device) {
  if (!m_power.IsOn() || !device.inRange || device.paired || IsBusy()) {
    return false;
  }
  Begin(device.data.address, "", true);
  Ask();
  return true;
}

void Pairing::Begin(const std::string& address, const std::string& pin, bool projection) {
  m_address = address;
  m_pin = pin;
  m_projection = projection;
  m_acceptedHere = false;
  m_acceptedThere = false;
  Report(BT_PAIR_PAIRING, BT_PAIR_REASON_NONE);
}

void Pairing::Ask() {
  const RemoteDevice& device = *m_devices.Find(m_address);
  if (m_devices.IsFull()) {
    Fail(BT_PAIR_REASON_LIST_FULL);
    return;
  }
  m_stage = Stage::ASKING;
  const PairRequestState state = device.data.pairing;
  if (state == BT_PAIR_REQUEST_PIN_CODE && !m_pin.empty()) {
    Finish(m_pin);
    return;
  }
  const bool hasDigits = state == BT_PAIR_REQUEST_CONFIRMATION || state == BT_PAIR_REQUEST_PASSKEY_DISPLAY;
  m_context.Report(PairRequested{m_address, hasDigits ? SixDigits() : "", m_projection, state});
  m_tasks.After(m_context.delays.pairAnswer, [this] { Fail(BT_PAIR_REASON_TIMEOUT); });

  // The other side has a question of its own, unless it only waits for what is typed here.
  m_acceptedHere = state == BT_PAIR_REQUEST_PASSKEY_DISPLAY;
  m_acceptedThere = state == BT_PAIR_REQUEST_PIN_CODE || state == BT_PAIR_REQUEST_PASSKEY_ENTRY;
  if (!m_acceptedThere) {
    m_tasks.After(m_context.delays.pairRemote, [this, &device] {
      if (m_acceptedThere) {
        return;  // they have been quicker
      }
      device.data.acceptsPairing ? AcceptFromRemote(device) : RejectFromRemote(device);
    });
  }
  const bool needsText = state == BT_PAIR_REQUEST_PIN_CODE || state == BT_PAIR_REQUEST_PASSKEY_ENTRY;
  if (m_settings.AutoAnswersPairing() && !needsText) {
    m_tasks.After(m_context.delays.autoAnswerPair, [this, state] { Accept(m_address, "", state); });
  }
}

bool Pairing::IsAsking(const std::string& address, PairRequestState state) const {
  const RemoteDevice* const device = m_devices.Find(address);
  return m_stage == Stage::ASKING && device != nullptr && device->data.address == m_address &&
         device->data.pairing == state;
}

bool Pairing::Accept(const std::string& address, const std::string& pin, PairRequestState state) {
  if (!IsAsking(address, state)) {
    return false;
  }
  m_pin = pin;
  m_acceptedHere = true;
  CheckAnswers();
  return true;
}

bool Pairing::Reject(const std::string& address, PairRequestState state) {
  if (!IsAsking(address, state)) {
    return false;
  }
  Fail(BT_PAIR_REASON_REJECTED_LOCAL);
  return true;
}

bool Pairing::IsUnderWayWith(const RemoteDevice& device) const {
  return IsBusy() && device.data.address == m_address;
}

bool Pairing::AcceptFromRemote(const RemoteDevice& device) {
  if (!IsUnderWayWith(device) || m_stage != Stage::ASKING || m_acceptedThere) {
    return false;
  }
  m_acceptedThere = true;
  CheckAnswers();
  return true;
}

bool Pairing::RejectFromRemote(const RemoteDevice& device) {
  if (!IsUnderWayWith(device)) {
    return false;
  }
  Fail(BT_PAIR_REASON_REJECTED_REMOTE);
  return true;
}

void Pairing::CheckAnswers() {
  if (m_acceptedHere && m_acceptedThere) {
    Finish(m_pin);
  }
}

void Pairing::Finish(const std::string& pin) {
  m_stage = Stage::KEYS;
  m_tasks.CancelAll();
  m_tasks.After(m_context.delays.pairKeys, [this, pin] {
    RemoteDevice& device = *m_devices.Find(m_address);
    const PairRequestState state = device.data.pairing;
    const bool needsText = state == BT_PAIR_REQUEST_PIN_CODE || state == BT_PAIR_REQUEST_PASSKEY_ENTRY;
    if (needsText && pin != device.data.pin) {
      Fail(BT_PAIR_REASON_AUTHENTICATION);
      return;
    }
    // A key by other means can have come meanwhile: for this device, or for the last place in the list.
    if (!device.paired && m_devices.IsFull()) {
      Fail(BT_PAIR_REASON_LIST_FULL);
      return;
    }
    m_stage = Stage::IDLE;
    if (!device.paired) {
      m_devices.AddPaired(device);
    }
    Report(BT_PAIR_PAIRED, BT_PAIR_REASON_NONE);
  });
}

void Pairing::Fail(PairFailedReson reason) {
  m_tasks.CancelAll();
  m_stage = Stage::IDLE;
  Report(BT_PAIR_FAILED, reason);
}

void Pairing::DeviceLost(const RemoteDevice& device) {
  if (IsUnderWayWith(device)) {
    Fail(BT_PAIR_REASON_UNREACHABLE);
  }
}

void Pairing::Report(PairStatus status, PairFailedReson reason) const {
  m_context.Report(PairChanged{status, reason, m_address});
}

void Pairing::ReportUnderWay() const {
  if (IsBusy()) {
    Report(BT_PAIR_PAIRING, BT_PAIR_REASON_NONE);
  }
}

std::string Pairing::SixDigits() {
  const std::string digits = std::to_string(std::uniform_int_distribution<int>(0, 999999)(m_context.random));
  return std::string(6 - digits.size(), '0') + digits;
}

bool Pairing::SetOobLinkKey(const std::string& address, const Bytes& key) {
  if (!m_power.IsOn() || !IsBluetoothAddress(address)) {
    return false;
  }
  m_oobTasks.After(m_context.delays.oobKey, [this, address, fits = key.size() == kLinkKeySize] {
    RemoteDevice* const device = m_devices.Find(address);
    const bool success = fits && device != nullptr && (device->paired || !m_devices.IsFull());
    if (success && !device->paired) {
      m_devices.AddPaired(*device);
    }
    m_context.Report(OobLinkKeySet{ReportedAddress(address), success});
  });
  return true;
}

}  // namespace btservice
