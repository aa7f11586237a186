// What an event costs a client with a listener, next to a bare handler of the generated proxy's GObject
// signal.
//
// The events of a round are all there, waiting in the main context, before the clock starts: what is measured
// is their dispatch, from the body of the D-Bus message to the listener.

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/IMWPBtMediaListener.h>
#include <bluetooth/IMWPBtPhoneListener.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "bench/harness/Clocks.h"
#include "bench/harness/Rounds.h"
#include "bench/sections/Sections.h"
#include "ipc/BtClientIpcAdapter.h"
#include "ipc/BtProxy.h"

namespace {

constexpr std::size_t kRounds = 201;
constexpr unsigned kEvents = 400;  // in each round
constexpr double kLimit = 1.05;
constexpr std::size_t kFurtherListeners = 100;
constexpr double kLimitOfFurtherListener = 20;  // nanoseconds

unsigned s_received = 0;

class SignalListener : public IMWPBtPhoneListener {
 public:
  void OnBtSignalChanged(unsigned char) override { ++s_received; }
};

class PositionListener : public IMWPBtMediaListener {
 public:
  void OnCurPositionChanged(int, int) override { ++s_received; }
};

class ProfileListener : public IMWPBtComListener {
 public:
  void OnSupportProfileChanged(const std::string&, MWPBtType::ProfileId) override { ++s_received; }
};

gboolean OnBareSignal(ComZelkLinuxBluetooth*, guchar, gpointer) { return ++s_received != 0; }
gboolean OnBarePosition(ComZelkLinuxBluetooth*, gint, gint, gpointer) { return ++s_received != 0; }
gboolean OnBareProfile(ComZelkLinuxBluetooth*, const gchar*, guchar, gpointer) { return ++s_received != 0; }

/// An event that is measured.
struct Event {
  const char* name;        ///< for the report
  const char* wireName;    ///< of the D-Bus signal
  const char* objectName;  ///< of the GObject signal
  const char* arguments;   ///< as text that g_variant_parse reads
  GCallback bareHandler;
};

/// Disconnects all handlers of one GObject signal from the proxy.
void Disconnect(guint signal) {
  while (const gulong handler =
             g_signal_handler_find(g_BtProxy, G_SIGNAL_MATCH_ID, signal, 0, nullptr, nullptr, nullptr)) {
    g_signal_handler_disconnect(g_BtProxy, handler);
  }
}

/// Who hears of an event: the library, as it subscribes itself, or a bare handler in its place.
class Subscription {
 public:
  void ToLibrary() {
    Clear();
    m_adapter.RegisterDBusSignal();
  }

  void ToBareHandler(const Event& event) {
    ToLibrary();
    Disconnect(g_signal_lookup(event.objectName, G_OBJECT_TYPE(g_BtProxy)));
    g_signal_connect(g_BtProxy, event.objectName, event.bareHandler, nullptr);
  }

 private:
  static void Clear() {
    guint count = 0;
    guint* const ids = g_signal_list_ids(com_zelk_linux_bluetooth_get_type(), &count);
    std::for_each(ids, ids + count, Disconnect);
    g_free(ids);
  }

  // Lives as long as the process: the handlers stay connected, and its end would take the segments from the
  // client.
  BtClientIpcAdapter& m_adapter = *new BtClientIpcAdapter;
};

/// The processor time that one event costs the thread that dispatches it. Every event is heard `hearers`
/// times.
double CostOfEvent(Responder& responder, const Event& event, std::size_t hearers) {
  responder.Emit(event.wireName, g_variant_new_parsed(event.arguments), kEvents);
  s_received = 0;
  const double cost = Cost(CLOCK_THREAD_CPUTIME_ID, [] {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
  });
  if (s_received != kEvents * hearers) {
    throw std::runtime_error(std::string(event.name) + " was heard " + std::to_string(s_received) +
                             " times of " + std::to_string(kEvents * hearers));
  }
  return cost / kEvents;
}

template <typename Listener>
void CompareWithBareHandler(Report& report, Responder& responder, Subscription& subscription,
                            const Event& event) {
  const Listener listener;
  const Rounds rounds = RunInTurn({{"bare handler",
                                    [&] {
                                      subscription.ToBareHandler(event);
                                      return CostOfEvent(responder, event, 1);
                                    }},
                                   {"listener",
                                    [&] {
                                      subscription.ToLibrary();
                                      return CostOfEvent(responder, event, 1);
                                    }}},
                                  kRounds);
  report.Add({event.name, Microseconds(rounds.Median(1)), "a bare handler", Microseconds(rounds.Median(0)),
              Times(rounds.Ratio(1)), kLimit});
}

void MeasureFurtherListeners(Report& report, Responder& responder, const Event& event) {
  const SignalListener first;
  const Rounds rounds = RunInTurn({{"one listener", [&] { return CostOfEvent(responder, event, 1); }},
                                   {"101 listeners",
                                    [&] {
                                      const std::vector<SignalListener> further(kFurtherListeners);
                                      return CostOfEvent(responder, event, 1 + kFurtherListeners);
                                    }}},
                                  kRounds);
  report.Add({"with 100 further listeners, each of them",
              Microseconds(rounds.Median(1)),
              "one listener",
              Microseconds(rounds.Median(0)),
              {rounds.Difference(1, 0) / kFurtherListeners * 1e9, "ns"},
              kLimitOfFurtherListener});
}

}  // namespace

void MeasureEvents(Report& report, Responder& responder) {
  report.BeginSection("events", "processor time of the client's thread for one event, heard by one listener");
  const Event signal = {"signal strength (a byte)", "OnBtSignalChanged", "on-bt-signal-changed", "(byte 4,)",
                        G_CALLBACK(OnBareSignal)};
  const Event position = {"position in the track (two integers)", "OnCurPositionChanged",
                          "on-cur-position-changed", "(61000, 183000)", G_CALLBACK(OnBarePosition)};
  const Event profile = {"supported profiles (an address and a byte)", "OnSupportProfileChanged",
                         "on-support-profile-changed", "('00:11:22:33:44:55', byte 3)",
                         G_CALLBACK(OnBareProfile)};
  Subscription subscription;
  CompareWithBareHandler<SignalListener>(report, responder, subscription, signal);
  CompareWithBareHandler<PositionListener>(report, responder, subscription, position);
  CompareWithBareHandler<ProfileListener>(report, responder, subscription, profile);
  subscription.ToLibrary();
  MeasureFurtherListeners(report, responder, signal);
}
