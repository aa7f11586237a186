#include "Calls.h"

#include <algorithm>

#include "BtService.h"
#include "Changes.h"
#include "KeyedModel.h"
#include "Texts.h"

namespace btqt {
namespace {

constexpr unsigned kParts = btasync::PART_CALLS | btasync::PART_AUDIO;

static_assert(static_cast<int>(btasync::BT_CALL_INCOMING) == Calls::Incoming &&
                  static_cast<int>(btasync::BT_CALL_RESPONSE_HELD) == Calls::ResponseHeld &&
                  static_cast<int>(btasync::BT_CODEC_LC3_SWB) == Calls::Lc3Swb,
              "states and codecs have the numbers of libbtasync's");

using btasync::CallEntry;

bool isPossible(const btasync::CallsState& calls, btasync::CallAction action) {
  return std::find(calls.possible.begin(), calls.possible.end(), action) != calls.possible.end();
}

}  // namespace

Calls::Calls(BtService& service)
    : Subject(service, kParts),
      m_model(new KeyedModel<CallEntry>(
          [](const CallEntry& call) { return QString::number(call.callId); },
          {{"callId", [](const CallEntry& call) { return QVariant(call.callId); }},
           {"number", [](const CallEntry& call) { return QVariant(toQt(call.number)); }},
           {"name", [](const CallEntry& call) { return QVariant(toQt(call.name)); }},
           {"state", [](const CallEntry& call) { return QVariant(static_cast<int>(call.status)); }},
           {"seconds", [](const CallEntry& call) { return QVariant(call.seconds); }},
           {"conference", [](const CallEntry& call) { return QVariant(call.conference); }},
           {"outgoing", [](const CallEntry& call) { return QVariant(!call.incoming); }},
           {"phone", [](const CallEntry& call) { return QVariant(toQt(call.phone)); }}},
          this)),
      m_incoming(QVariant::fromValue(nullptr)) {
  show(now(), kParts);
}

RowsModel* Calls::model() const { return m_model; }

void Calls::show(const btasync::State& state, unsigned /*parts*/) {
  m_model->setRows(toRows(state.calls.calls));

  Changes changes(*this);
  changes.set(m_count, state.calls.count, &Calls::countChanged);
  changes.set(m_incoming, incomingOf(state.calls), &Calls::incomingChanged);
  changes.set(m_isPrivate, state.audio.onPhone, &Calls::privacyChanged);
  changes.set(m_codec, static_cast<Codec>(state.audio.codec), &Calls::codecChanged);
  changes.set(m_canSwap, isPossible(state.calls, btasync::BT_CALL_HOLD_ACTIVE), &Calls::possibleChanged);
  changes.set(m_canMerge, isPossible(state.calls, btasync::BT_CALL_CONFERENCE), &Calls::possibleChanged);
  setFresh(changes, state.calls.fresh && state.audio.fresh);
}

QVariant Calls::incomingOf(const btasync::CallsState& calls) const {
  const auto ringing = std::find_if(calls.calls.begin(), calls.calls.end(), [](const CallEntry& call) {
    return call.status == btasync::BT_CALL_INCOMING || call.status == btasync::BT_CALL_WAITING;
  });
  return ringing != calls.calls.end()
             ? QVariant(m_model->get(static_cast<int>(ringing - calls.calls.begin())))
             : QVariant::fromValue(nullptr);
}

void Calls::dial(const QString& number, Operation* operation) {
  ask(service().DialCall(number.toStdString()), operation);
}

void Calls::redial(Operation* operation) { ask(service().RedialCall(), operation); }

void Calls::accept(Operation* operation) { ask(service().AcceptCall(), operation); }

void Calls::reject(Operation* operation) { ask(service().RejectCall(), operation); }

void Calls::hangUp(Operation* operation) { ask(service().TerminateCall(), operation); }

void Calls::swap(Operation* operation) {
  ask(service().SwitchCalls(btasync::BT_CALL_HOLD_ACTIVE), operation);
}

void Calls::merge(Operation* operation) {
  ask(service().SwitchCalls(btasync::BT_CALL_CONFERENCE), operation);
}

void Calls::sendTone(const QString& tone, Operation* operation) {
  static const QString kTones = QStringLiteral("0123456789*#ABCD");
  if (tone.size() == 1 && kTones.contains(tone)) {
    ask(service().SendDTMF(tone[0].toLatin1()), operation);
  } else if (operation != nullptr) {
    operation->fail(*this, btasync::Reason::InvalidArgument, "not one of the tones 0-9, *, #, A-D");
  }
}

void Calls::setPrivacy(bool on, Operation* operation) { ask(service().SetAudioPrivacy(on), operation); }

}  // namespace btqt
