#ifndef TESTS_CONTRACT_EVENTS_FIXTURE_H
#define TESTS_CONTRACT_EVENTS_FIXTURE_H

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/RecordingListeners.h"
#include "contract/StartedLibrary.h"
#include "contract/WireValues.h"
#include "support/InterfaceDescription.h"
#include "support/LogCapture.h"

// What the tests of events have in common: the library is started, and two listeners of each kind note what
// they receive.

namespace bttest {

/// A signal that the library subscribes to and hands to no listener.
constexpr const char* kHeardByNobody = "OnScanedDeviceChanged";

/// Whether a signal reaches listeners.
bool IsHeard(const std::string& signal);

/// The names of the signals in the order in which the library subscribes to them.
const std::vector<std::string>& SubscribedSignals();
bool IsSubscribed(const std::string& signal);

/// The name under which the bindings emit a signal: OnPBDownloadStatus is on-pbdownload-status.
std::string GObjectName(const std::string& signal);

enum class Texts { AS_GIVEN, MISSING };

/// Emits a signal on the proxy object itself, as the bindings do with one that arrives; with null for every
/// text, which never arrives over a bus, if that is wanted.
void EmitOn(ComZelkLinuxBluetooth* proxy, const SignalDescription& signal, GVariant* arguments,
            Texts texts = Texts::AS_GIVEN);

/// A handler as it was connected to a signal of the proxy.
struct SignalConnection {
  ComZelkLinuxBluetooth* proxy;
  std::string signal;  ///< the name that was given, as it was spelled
  GCallback handler;
  gpointer data;
  GClosureNotify destroyData;
  GConnectFlags flags;
};

/// Calls a handler as an emission does, and gives what it answers: emissions of this interface ignore that.
bool AnswerOf(const SignalConnection& connection, const SignalDescription& signal, GVariant* arguments,
              Texts texts = Texts::AS_GIVEN);

/// The number that GObject gives to a signal of the interface.
unsigned SignalId(const std::string& signal);

class Events : public testing::Test {
 protected:
  Events() { log.Clear(); }

  /// What the listeners receive once the service has sent the signal.
  const std::vector<Reception>& Send(const SignalDescription& signal, GVariant* arguments) {
    receptions.all.clear();
    library.Signal(signal.name, arguments);
    return receptions.all;
  }
  const std::vector<Reception>& Send(const std::string& signal, GVariant* arguments) {
    return Send(BluetoothInterface().Signal(signal), arguments);
  }

  /// Fails unless the two listeners of one kind received the event with these values, in the order of their
  /// addresses, and no other received anything.
  void ExpectOneKindHears(const std::string& event, const std::vector<std::string>& values) const;

  LogCapture log;
  StartedLibrary library;
  Receptions receptions;
  std::optional<TwoListenersOfEachKind> listeners{receptions};
};

}  // namespace bttest

#endif
