#include "service/simulation/calls/CallTable.h"

#include <algorithm>

namespace btservice {
namespace {

constexpr std::size_t kLongestNumber = 32;

bool IsNumber(const std::string& text) {
  return !text.empty() && text.size() <= kLongestNumber &&
         text.find_first_not_of("0123456789*#+ABCDabcd,;") == std::string::npos;
}

}  // namespace

CallTable::CallTable(ModelContext& context, Settings& settings, Connections& connections)
    : m_context(context),
      m_settings(settings),
      m_connections(connections),
      m_reports(context.scheduler, context.observers, context.delays.callTick,
                [this] { return Reported(); }) {
  connections.onChanged.Add([this](RemoteDevice& device, ProfileId profile, ConnStatus status) {
    if (profile == BT_PROFILE_HFP && status != BT_CONN_CONNECTED) {
      EndThere(device, 0);
    }
  });
}

bool CallTable::Dial(const std::string& number) {
  RemoteDevice* const device = m_connections.Active(BT_PROFILE_HFP);
  const bool isBusy = Has(BT_CALL_DIALING) || Has(BT_CALL_ALERTING) || Has(BT_CALL_INCOMING) ||
                      Has(BT_CALL_WAITING) || (Has(BT_CALL_ACTIVE) && Has(BT_CALL_HELD));
  if (device == nullptr || !IsNumber(number) || isBusy) {
    return false;
  }
  m_lastDialed = number;
  SetAll(BT_CALL_ACTIVE, BT_CALL_HELD);
  Call& call = Begin(*device, number, false, BT_CALL_DIALING);
  call.timer.Start(m_context.delays.dial, [this, &call] { WaitForOtherEnd(call); });
  Commit();
  return true;
}

void CallTable::WaitForOtherEnd(Call& call) {
  const PhoneData& phone = call.device->data.phone;
  if (phone.calledParty == CalledParty::BUSY) {
    End(call);
    Commit();
    return;
  }
  call.status = BT_CALL_ALERTING;
  if (phone.calledParty == CalledParty::ANSWERS) {
    call.timer.Start(phone.answersAfter, [this, &call] {
      Answer(call);
      Commit();
    });
  } else {
    call.timer.Start(m_context.delays.ringTimeout, [this, &call] {
      End(call);
      Commit();
    });
  }
  Commit();
}

bool CallTable::Redial() { return !m_lastDialed.empty() && Dial(m_lastDialed); }

bool CallTable::Accept() {
  if (Call* const call = Find(BT_CALL_INCOMING)) {
    Answer(*call);
    Commit();
    return true;
  }
  return Has(BT_CALL_WAITING) && Perform(BT_CALL_HOLD_ACTIVE, 0);
}

bool CallTable::Reject() {
  Call* call = Find(BT_CALL_INCOMING);
  if (call == nullptr) {
    call = Find(BT_CALL_WAITING);
  }
  if (call == nullptr) {
    return false;
  }
  call->rejectedHere = true;
  End(*call);
  Commit();
  return true;
}

bool CallTable::HangUp() {
  for (const CallStatus status : {BT_CALL_DIALING, BT_CALL_ALERTING, BT_CALL_ACTIVE}) {
    if (EndAll(status)) {
      Commit();
      return true;
    }
  }
  return Reject();
}

bool CallTable::ComeIn(RemoteDevice& device, const std::string& number) {
  if (!device.IsConnected(BT_PROFILE_HFP) || m_calls.size() >= kMaximum || Has(BT_CALL_INCOMING) ||
      Has(BT_CALL_WAITING)) {
    return false;
  }
  Call& call = Begin(device, number, true, m_calls.empty() ? BT_CALL_INCOMING : BT_CALL_WAITING);
  const auto end = [this, &call] {
    End(call);
    Commit();
  };
  if (m_settings.IsOn(BT_CAP_AUTO_REJECT_INCALL)) {
    call.rejectedHere = true;
    call.timer.Start(m_context.delays.hangUp, end);
  } else {
    call.timer.Start(m_context.delays.ringTimeout, end);
    if (call.status == BT_CALL_INCOMING) {
      RingAlone(call);
    }
  }
  Commit();
  return true;
}

/// A call that waited rings like any other once there is no other: there is nothing left to wait for.
void CallTable::RingAlone(Call& call) {
  call.status = BT_CALL_INCOMING;
  if (m_settings.IsOn(BT_CAP_AUTO_ANSWER) && !call.rejectedHere) {
    call.timer.Start(m_context.delays.autoAnswer, [this] { Accept(); });
  }
}

bool CallTable::AnswerThere(RemoteDevice& device) {
  Call* const call = Find(BT_CALL_ALERTING);
  if (call == nullptr || call->device != &device) {
    return false;
  }
  Answer(*call);
  Commit();
  return true;
}

bool CallTable::EndThere(RemoteDevice& device, int callId) {
  std::vector<Call*> ending;
  for (const auto& call : m_calls) {
    if (call->device == &device && (callId == 0 || call->id == callId)) {
      ending.push_back(call.get());
    }
  }
  for (Call* const call : ending) {
    End(*call);
  }
  if (!ending.empty()) {
    Commit();
  }
  return !ending.empty();
}

bool CallTable::Has(CallStatus status) const { return Find(status) != nullptr; }

void CallTable::Commit() {
  if (m_calls.size() == 1 && m_calls.front()->status == BT_CALL_WAITING) {
    RingAlone(*m_calls.front());
  }
  m_reports.ReportChanges(PossibleActions());
  onChanged();
}

std::vector<ReportedCall> CallTable::Reported() const {
  std::vector<ReportedCall> reported;
  reported.reserve(m_calls.size());
  for (const auto& call : m_calls) {
    reported.push_back({call->id, call->status, call->answered, Seconds(*call)});
  }
  return reported;
}

int CallTable::Seconds(const Call& call) const {
  return call.answered ? static_cast<int>((m_context.scheduler.Now() - call.since) / std::chrono::seconds(1))
                       : 0;
}

Call& CallTable::Begin(RemoteDevice& device, const std::string& number, bool incoming, CallStatus status) {
  auto call = std::make_unique<Call>(m_context.scheduler);
  call->id = 1;
  while (FindById(call->id) != nullptr) {
    ++call->id;
  }
  call->device = &device;
  call->number = number;
  call->incoming = incoming;
  call->status = status;
  call->since = m_context.scheduler.Now();
  m_calls.push_back(std::move(call));
  return *m_calls.back();
}

Call* CallTable::Find(CallStatus status) const {
  const auto place =
      std::find_if(m_calls.begin(), m_calls.end(), [&](const auto& call) { return call->status == status; });
  return place != m_calls.end() ? place->get() : nullptr;
}

Call* CallTable::FindById(int id) const {
  const auto place =
      std::find_if(m_calls.begin(), m_calls.end(), [&](const auto& call) { return call->id == id; });
  return place != m_calls.end() ? place->get() : nullptr;
}

void CallTable::SetAll(CallStatus from, CallStatus to) {
  for (const auto& call : m_calls) {
    if (call->status == from) {
      call->status = to;
    }
  }
}

void CallTable::Answer(Call& call) {
  call.timer.Stop();
  call.status = BT_CALL_ACTIVE;
  call.answered = true;
  call.since = m_context.scheduler.Now();
}

void CallTable::End(Call& call) {
  onEnded(call);
  m_calls.erase(
      std::find_if(m_calls.begin(), m_calls.end(), [&](const auto& one) { return one.get() == &call; }));
  SetMultiparty();
}

bool CallTable::EndAll(CallStatus status) {
  bool ended = false;
  while (Call* const call = Find(status)) {
    End(*call);
    ended = true;
  }
  return ended;
}

/// A conference of one is an ordinary call.
void CallTable::SetMultiparty() {
  const auto parties =
      std::count_if(m_calls.begin(), m_calls.end(), [](const auto& call) { return call->multiparty; });
  for (const auto& call : m_calls) {
    call->multiparty = call->multiparty && parties > 1;
  }
}

}  // namespace btservice
