#ifndef TESTS_CONTRACT_RECORDINGLISTENERS_H
#define TESTS_CONTRACT_RECORDINGLISTENERS_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <bluetooth/IMWPBtBleListener.h>
#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtMessageListener.h>
#include <bluetooth/IMWPBtPbapListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>
#include <bluetooth/IMWPBtSppListener.h>

#include "contract/ValueText.h"

// Listeners of all kinds that note each event that they receive.

namespace bttest {

/// An event as one listener received it.
struct Reception {
  const IMWPBtListenerBase* listener;
  std::string event;                ///< name of the listener's method
  std::vector<std::string> values;  ///< as ValueText gives them; a buffer counts as the text of its bytes
};

/// What several listeners received, in order.
struct Receptions {
  std::vector<Reception> all;
  std::function<void()> afterEach;  ///< runs inside the callback, and may throw
};

template <typename Interface>
class RecordingListener : public Interface {
 public:
  explicit RecordingListener(Receptions& receptions) : m_receptions(receptions) {}

 protected:
  template <typename... Values>
  void Note(const char* event, const Values&... values) {
    m_receptions.all.push_back({this, event, {ValueText::Of(values)...}});
    if (m_receptions.afterEach) {
      m_receptions.afterEach();
    }
  }

 private:
  Receptions& m_receptions;
};

// One class for each listener interface, RecordingComListener and so on, which notes every event of it.
#include "derived/listeners.inc"

/// One listener of each kind.
struct ListenerOfEachKind {
  explicit ListenerOfEachKind(Receptions& r)
      : com(r), phone(r), media(r), pbap(r), message(r), spp(r), ble(r) {}
  RecordingComListener com;
  RecordingPhoneListener phone;
  RecordingMediaListener media;
  RecordingPbapListener pbap;
  RecordingMessageListener message;
  RecordingSppListener spp;
  RecordingBleListener ble;
};

/// Two listeners of each kind. Those constructed first have the higher addresses, so that the order of
/// addresses and that of construction are not the same.
class TwoListenersOfEachKind {
 public:
  explicit TwoListenersOfEachKind(Receptions& receptions) {
    m_sets[1].emplace(receptions);
    m_sets[0].emplace(receptions);
  }

 private:
  std::optional<ListenerOfEachKind> m_sets[2];
};

}  // namespace bttest

#endif
