#include "tests/conformance/Phone.h"

#include <cstdlib>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "protocol/BusNames.h"
#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"

namespace conformance {
namespace {

std::string FromEnvironment(const char* name, const char* otherwise) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : otherwise;
}

std::set<std::string> Words(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

bool IsAsked(const std::string& what) {
  static const std::set<std::string> asked{
      kLinkKeyByOtherMeans, kProjection, kSerialEcho, kNextTrack, kBrowsing, kPlayModes, kVoiceRecognition};
  return asked.count(what) != 0;
}

}  // namespace

Phone::Phone()
    : m_name(FromEnvironment("BTCONFORMANCE_PHONE_NAME", kServiceName)),
      m_path(FromEnvironment("BTCONFORMANCE_PHONE_PATH", kControlPath)),
      m_isTheSimulations(std::getenv("BTCONFORMANCE_SERVICE") == nullptr),
      m_lacks(Words(FromEnvironment("BTCONFORMANCE_LACKS", ""))) {
  OwnedError error;
  m_connection.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, error.Out()));
  bttest::ThrowIfSet(error, "connecting to the bus");
}

bool Phone::Can(const std::string& verb) {
  if (IsAsked(verb)) {
    return m_lacks.count(verb) == 0;
  }
  if (!m_verbs) {
    m_verbs = Verbs();
  }
  return m_verbs->count(verb) != 0;
}

std::set<std::string> Phone::Verbs() {
  std::set<std::string> verbs;
  try {
    const OwnedVariant answer = Call("org.freedesktop.DBus.Introspectable", "Introspect", nullptr);
    const char* xml = nullptr;
    g_variant_get(answer.get(), "(&s)", &xml);
    for (const bttest::InterfaceDescription& interface : bttest::ParseInterfaces(xml)) {
      for (const bttest::MethodDescription& method : interface.methods) {
        if (interface.name == kOutsideInterface) {
          verbs.insert(method.name);
        }
      }
    }
  } catch (const std::runtime_error&) {
    // There is no such object, or it describes nothing: a phone that can do nothing.
  }
  return verbs;
}

bool Phone::Do(const std::string& verb, GVariant* arguments) {
  const OwnedVariant answer = Call(kOutsideInterface, verb.c_str(), arguments);
  gboolean happened = FALSE;
  g_variant_get(answer.get(), "(b)", &happened);
  return happened != FALSE;
}

bool Phone::Do(const std::string& verb, const std::string& address) {
  return Do(verb, g_variant_new("(s)", address.c_str()));
}

bool Phone::Do(const std::string& verb, const std::string& address, const std::string& text) {
  return Do(verb, g_variant_new("(ss)", address.c_str(), text.c_str()));
}

OwnedVariant Phone::Call(const char* interface, const char* method, GVariant* arguments) {
  OwnedError error;
  OwnedVariant answer(g_dbus_connection_call_sync(m_connection.get(), m_name.c_str(), m_path.c_str(),
                                                  interface, method, arguments, nullptr,
                                                  G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out()));
  bttest::ThrowIfSet(error, method);
  return answer;
}

}  // namespace conformance
