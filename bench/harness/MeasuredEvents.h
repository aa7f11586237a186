#ifndef BENCH_HARNESS_MEASUREDEVENTS_H
#define BENCH_HARNESS_MEASUREDEVENTS_H

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>

#include <cstddef>

#include <gio/gio.h>

#include "bench/responder/Responder.h"
#include "ipc/BtClientIpcAdapter.h"

// The events that are measured, and the two who may hear of them.

/// How many events the listeners and the bare handlers have heard. Set it to 0 before a round.
extern unsigned g_eventsHeard;

class SignalListener : public IMWPBtPhoneListener {
 public:
  void OnBtSignalChanged(unsigned char) override { ++g_eventsHeard; }
};

class PositionListener : public IMWPBtMediaListener {
 public:
  void OnCurPositionChanged(int, int) override { ++g_eventsHeard; }
};

class ProfileListener : public IMWPBtComListener {
 public:
  void OnSupportProfileChanged(const std::string&, MWPBtType::ProfileId) override { ++g_eventsHeard; }
};

/// An event that is measured.
struct Event {
  const char* name;        ///< for the report
  const char* wireName;    ///< of the D-Bus signal
  const char* objectName;  ///< of the GObject signal
  const char* arguments;   ///< as text that g_variant_parse reads
  GCallback bareHandler;   ///< counts the event, as its listener does
};

extern const Event kSignalEvent;    ///< of SignalListener
extern const Event kPositionEvent;  ///< of PositionListener
extern const Event kProfileEvent;   ///< of ProfileListener

/// Who hears of an event: the library, as it subscribes itself, or a bare handler in its place.
class Subscription {
 public:
  void ToLibrary();
  void ToBareHandler(const Event& event);

 private:
  // Lives as long as the process: the handlers stay connected, and its end would take the segments from the
  // client.
  BtClientIpcAdapter& m_adapter = *new BtClientIpcAdapter;
};

/// Throws std::runtime_error unless that many events were heard.
void RequireHeard(const Event& event, std::size_t expected);

/// Has an event sent many times, and dispatches what is there for as long as there is something. `dispatch`
/// runs that work, and may measure it. Throws std::runtime_error unless each event is heard `hearers` times.
template <typename Dispatch>
void DispatchEvents(Responder& responder, const Event& event, unsigned events, std::size_t hearers,
                    Dispatch dispatch) {
  responder.Emit(event.wireName, g_variant_new_parsed(event.arguments), events);
  g_eventsHeard = 0;
  dispatch([] {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
  });
  RequireHeard(event, events * hearers);
}

#endif
