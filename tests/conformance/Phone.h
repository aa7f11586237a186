#ifndef TESTS_CONFORMANCE_PHONE_H
#define TESTS_CONFORMANCE_PHONE_H

#include <optional>
#include <set>
#include <string>

#include <gio/gio.h>

#include "glib/OwnedBus.h"

namespace conformance {

/// The phone that the suite is run with, paired or not, and one that it meets for the first time.
constexpr const char* kPhone = "00:1A:7D:DA:71:13";
constexpr const char* kNewPhone = "00:1A:7D:DA:71:14";

// What a phone, or the stack, may be unable to do when the car asks for it. No verb says so: those that are
// lacking are listed, apart by blanks, in BTCONFORMANCE_LACKS.
constexpr const char* kLinkKeyByOtherMeans = "link-key-by-other-means";
constexpr const char* kProjection = "projection";
constexpr const char* kSerialEcho = "serial-echo";  ///< sends back what it gets over a serial channel
constexpr const char* kNextTrack = "next-track";    ///< has one, with a cover image
constexpr const char* kBrowsing = "browsing";       ///< the folders of its player
constexpr const char* kPlayModes = "play-modes";
constexpr const char* kVoiceRecognition = "voice-recognition";

/// What a person, a phone or the network does: the verbs of the interface
/// com.zelk.linux.bluetooth.sim.Outside. The simulation has them; beside a real stack a program that drives
/// its phones can offer them, on the session bus under the name BTCONFORMANCE_PHONE_NAME at the path
/// BTCONFORMANCE_PHONE_PATH.
class Phone {
 public:
  Phone();

  /// Whether there is such a verb here, or the phone can do this when it is asked. A test that needs what it
  /// cannot do is skipped, but with the simulation, whose phone can do everything.
  bool Can(const std::string& verb);
  bool IsTheSimulations() const { return m_isTheSimulations; }
  /// Does it; true if it happened. arguments is a tuple, and may be floating. Throws if the call fails.
  bool Do(const std::string& verb, GVariant* arguments);
  /// A verb that takes the address of a phone and nothing else, or texts beside it.
  bool Do(const std::string& verb, const std::string& address);
  bool Do(const std::string& verb, const std::string& address, const std::string& text);

 private:
  std::set<std::string> Verbs();
  OwnedVariant Call(const char* interface, const char* method, GVariant* arguments);

  OwnedObject<GDBusConnection> m_connection;
  std::string m_name;
  std::string m_path;
  bool m_isTheSimulations;
  std::set<std::string> m_lacks;
  std::optional<std::set<std::string>> m_verbs;  ///< nothing before they were asked for
};

}  // namespace conformance

#endif
