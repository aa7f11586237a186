#include "contract/events_fixture.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "contract/Witness.h"
#include "glib/Owned.h"

namespace bttest {
namespace {

/// The arguments of an emission; the proxy is the first.
class Emission {
 public:
  Emission(ComZelkLinuxBluetooth* proxy, const Arguments& arguments, GVariant* values, Texts texts)
      : m_values(arguments.size() + 1) {
    g_value_init(&m_values[0], G_TYPE_OBJECT);
    g_value_set_object(&m_values[0], proxy);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      if (arguments[i].signature == "s" && texts == Texts::MISSING) {
        g_value_init(&m_values[i + 1], G_TYPE_STRING);
      } else {
        const OwnedVariant value(g_variant_get_child_value(values, i));
        g_dbus_gvariant_to_gvalue(value.get(), &m_values[i + 1]);
      }
    }
  }
  ~Emission() {
    for (GValue& value : m_values) {
      g_value_unset(&value);
    }
  }
  Emission(const Emission&) = delete;
  Emission& operator=(const Emission&) = delete;

  void Emit(unsigned signal) { g_signal_emitv(m_values.data(), signal, 0, nullptr); }

  /// Calls a handler as an emission does, and gives what it answers, which emissions of this interface
  /// ignore.
  bool AnswerOf(GCallback handler, gpointer data) {
    const OwnedClosure closure(g_closure_ref(g_cclosure_new(handler, data, nullptr)));
    g_closure_sink(closure.get());
    g_closure_set_marshal(closure.get(), g_cclosure_marshal_generic);
    GValue answer = G_VALUE_INIT;
    g_value_init(&answer, G_TYPE_BOOLEAN);
    g_closure_invoke(closure.get(), &answer, static_cast<guint>(m_values.size()), m_values.data(), nullptr);
    return g_value_get_boolean(&answer) != FALSE;
  }

 private:
  std::vector<GValue> m_values;
};

}  // namespace

bool IsHeard(const std::string& signal) {
  const std::vector<Witness::Event>& events = TheWitness().events;
  return std::any_of(events.begin(), events.end(), [&](const auto& event) { return event.name == signal; });
}

const std::vector<std::string>& SubscribedSignals() { return TheWitness().subscribed; }

bool IsSubscribed(const std::string& signal) {
  return std::find(SubscribedSignals().begin(), SubscribedSignals().end(), signal) !=
         SubscribedSignals().end();
}

std::string GObjectName(const std::string& signal) {
  std::string name;
  for (std::size_t i = 0; i < signal.size(); ++i) {
    if (i > 0 && g_ascii_isupper(signal[i]) && !g_ascii_isupper(signal[i - 1])) {
      name += '-';
    }
    name += g_ascii_tolower(signal[i]);
  }
  return name;
}

void EmitOn(ComZelkLinuxBluetooth* proxy, const SignalDescription& signal, GVariant* arguments, Texts texts) {
  Emission(proxy, signal.arguments, arguments, texts).Emit(SignalId(signal.name));
}

bool AnswerOf(const SignalConnection& connection, const SignalDescription& signal, GVariant* arguments,
              Texts texts) {
  return Emission(connection.proxy, signal.arguments, arguments, texts)
      .AnswerOf(connection.handler, connection.data);
}

unsigned SignalId(const std::string& signal) {
  const unsigned id = g_signal_lookup(GObjectName(signal).c_str(), TYPE_COM_ZELK_LINUX_BLUETOOTH);
  if (id == 0) {
    throw std::logic_error("the bindings have no signal for " + signal);
  }
  return id;
}

void Events::ExpectOneKindHears(const std::string& event, const std::vector<std::string>& values) const {
  ASSERT_EQ(receptions.all.size(), 2u) << event;
  const Reception& first = receptions.all[0];
  const Reception& second = receptions.all[1];
  for (const Reception& reception : receptions.all) {
    EXPECT_EQ(reception.event, event);
    EXPECT_EQ(reception.values, values) << event;
  }
  EXPECT_EQ(first.listener->m_nType, second.listener->m_nType) << event;
  EXPECT_TRUE(std::less<>()(first.listener, second.listener)) << event;
}

}  // namespace bttest
