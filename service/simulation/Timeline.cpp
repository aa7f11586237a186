#include "service/simulation/Timeline.h"

namespace btservice {
namespace {

/// Handles of messages that come by themselves, apart from those that a world begins with.
constexpr int kFirstHandle = 0x70000000;

std::string HexText(int number) {
  static const char digits[] = "0123456789ABCDEF";
  std::string text;
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += digits[(number >> shift) & 0xF];
  }
  return text;
}

}  // namespace

void Timeline::Start(const std::vector<Happening>& happenings) {
  for (const Happening& happening : happenings) {
    Schedule(happening, happening.at);
  }
}

void Timeline::Schedule(const Happening& happening, Milliseconds delay) {
  m_tasks.After(delay, [this, happening] {
    // What cannot happen just now (a call while no phone is connected) does not.
    Perform(happening);
    if (happening.every.count() > 0) {
      Schedule(happening, happening.every);
    }
  });
}

bool Timeline::Perform(const Happening& h) {
  switch (h.kind) {
    case HappeningKind::ARRIVE:
      return m_outside.SetInRange(h.device, true);
    case HappeningKind::LEAVE:
      return m_outside.SetInRange(h.device, false);
    case HappeningKind::LOSE_LINK:
      return m_outside.LoseLink(h.device);
    case HappeningKind::REQUEST_PAIRING:
      return m_outside.RequestPairing(h.device);
    case HappeningKind::REJECT_PAIRING:
      return m_outside.RejectPairing(h.device);
    case HappeningKind::CONNECT:
      return m_outside.RequestConnection(h.device, h.profile);
    case HappeningKind::DISCONNECT:
      return m_outside.RequestDisconnection(h.device, h.profile);
    case HappeningKind::REQUEST_PROJECTION:
      return m_outside.RequestProjection(h.device);
    case HappeningKind::CALL:
      return m_outside.Call(h.device, h.number);
    case HappeningKind::ANSWER_CALL:
      return m_outside.AnswerCall(h.device);
    case HappeningKind::HANG_UP:
      return m_outside.HangUp(h.device, 0);
    case HappeningKind::CALLED_PARTY:
      return m_outside.SetCalledParty(h.device, h.calledParty, h.answersAfter);
    case HappeningKind::SIGNAL:
      return m_outside.SetSignal(h.device, h.bars);
    case HappeningKind::BATTERY:
      return m_outside.SetBattery(h.device, h.bars);
    case HappeningKind::OPERATOR:
      return m_outside.SetOperator(h.device, h.text);
    case HappeningKind::ROAMING:
      return m_outside.SetRoaming(h.device, h.on);
    case HappeningKind::PLAY:
      return m_outside.Play(h.device);
    case HappeningKind::PAUSE:
      return m_outside.Pause(h.device);
    case HappeningKind::MESSAGE:
      return m_outside.SendMessage(h.device, {HexText(kFirstHandle + ++m_lastMessage), h.sender, h.text});
    case HappeningKind::SERIAL:
      return m_outside.SendSerial(h.device, Bytes(h.text.begin(), h.text.end()));
  }
  return false;
}

}  // namespace btservice
