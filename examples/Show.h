#ifndef EXAMPLES_SHOW_H
#define EXAMPLES_SHOW_H

// How the examples show what happens: a line for each event and request, with words for the values of the
// enumerations. A value that is not listed is shown as its number: the library passes it on as it came.

#include <bluetooth/MWPBtType.h>

#include <chrono>
#include <cstdio>
#include <initializer_list>
#include <string>

inline std::string WordFor(int value, std::initializer_list<const char*> words) {
  const bool isListed = value >= 0 && value < static_cast<int>(words.size());
  return isListed ? words.begin()[value] : std::to_string(value);
}

inline std::string ToText(const std::string& text) { return '"' + text + '"'; }
inline std::string ToText(int value) { return std::to_string(value); }

inline std::string ToText(MWPBtType::PowerStatus status) {
  return WordFor(status, {"off", "on", "turning off", "turning on"});
}
inline std::string ToText(MWPBtType::ScanStatus status) { return WordFor(status, {"idle", "scanning"}); }
inline std::string ToText(MWPBtType::PairStatus status) {
  return WordFor(status, {"not paired", "pairing", "paired", "failed"});
}
inline std::string ToText(MWPBtType::PairFailedReson reason) {
  return WordFor(reason, {"no failure", "wrong PIN or key", "refused on the device", "refused here",
                          "nobody answered", "unreachable", "too many paired devices", "busy"});
}
inline std::string ToText(MWPBtType::PairRequestState state) {
  return WordFor(state, {"compare digits", "type digits", "show digits", "PIN", "yes or no"});
}
inline std::string ToText(MWPBtType::ProfileId profile) {
  return WordFor(profile, {"no profile", "HFP", "A2DP", "HFP and A2DP", "AVRCP", "PBAP", "MAP", "SPP", "HID",
                           "PAN", "GATT"});
}
inline std::string ToText(MWPBtType::ConnStatus status) {
  return WordFor(
      status, {"disconnected", "connecting", "connected", "disconnecting", "failed", "link lost", "unknown"});
}
inline std::string ToText(MWPBtType::CallStatus status) {
  return WordFor(status,
                 {"over", "active", "held", "dialing", "alerting", "incoming", "waiting", "response held"});
}
inline std::string ToText(MWPBtType::MusicPlayStatus status) {
  return WordFor(status, {"stopped", "playing", "paused", "fast forward", "fast reverse"});
}
inline std::string ToText(MWPBtType::PbapStatus status) {
  return WordFor(status, {"idle", "connecting", "downloading", "completed", "stopped", "failed", "refused"});
}
inline std::string ToText(MWPBtType::PbapType type) {
  return WordFor(type, {"phone book", "incoming calls", "outgoing calls", "missed calls", "call log",
                        "phone book of the SIM card", "all"});
}
inline std::string ToText(MWPBtType::Capability capability) {
  return WordFor(capability, {"power switch", "auto connect", "auto answer", "auto reject", "4", "5", "6",
                              "auto download", "8", "visible", "local ring tone", "settings loaded"});
}
inline std::string ToText(MWPBtType::Attribute attribute) {
  return WordFor(attribute, {"local name", "local address", "PIN", "stack version", "class of device",
                             "download folder"});
}
inline std::string ToText(MWPBtType::SupportType type) {
  return WordFor(type, {"nothing special", "wireless projection", "phone link", "serial accessory"});
}
inline std::string ToText(MWPBtType::HUStatus status) {
  return WordFor(status, {"ready", "already paired", "busy", "failed"});
}

/// Prints one line: the time since the first line, and the text.
inline void ShowLine(const std::string& text) {
  using Clock = std::chrono::steady_clock;
  static const Clock::time_point start = Clock::now();
  std::printf("%7.3f s  %s\n", std::chrono::duration<double>(Clock::now() - start).count(), text.c_str());
  std::fflush(stdout);
}

/// Shows an event and its values.
template <typename... Values>
void ShowEvent(const char* event, const Values&... values) {
  std::string list;
  ((list += (list.empty() ? ": " : ", ") + ToText(values)), ...);
  ShowLine(std::string("event    ") + event + list);
}

/// Shows a request and what it answered; hands the answer on.
inline int ShowRequest(const char* request, int answer) {
  ShowLine(std::string("request  ") + request + " = " + std::to_string(answer));
  return answer;
}

#endif
