#include "support/Recorder.h"

#include <cstdlib>

#include "recorder/TupleMembers.h"
#include "support/GlibHelpers.h"

namespace bttest {

namespace {

std::vector<std::string> CommandLine(Recorder::Name name) {
  std::vector<std::string> command{BTTEST_RECORDER};
  if (name == Recorder::Name::NOT_YET) {
    command.push_back("--no-name");
  }
  return command;
}

/// Not the shared connection of the process, which the library under test uses.
OwnedObject<GDBusConnection> Connect() {
  const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address == nullptr) {
    throw std::logic_error("a Recorder needs a BusDaemon");
  }
  OwnedError error;
  OwnedObject<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
      address,
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, error.Out()));
  ThrowIfSet(error, "connecting to the bus");
  return connection;
}

}  // namespace

Recorder::Recorder(Name name) : m_process(CommandLine(name)), m_connection(Connect()) {
  if (!m_process.WaitForOutput("\n")) {
    throw std::runtime_error("the recorder does not start: " + m_process.Errors());
  }
  const std::string output = m_process.Output();
  m_busName = output.substr(0, output.find('\n'));
}

Recorder::~Recorder() { g_dbus_connection_close_sync(m_connection.get(), nullptr, nullptr); }

OwnedVariant Recorder::Call(const char* method, GVariant* arguments) {
  OwnedError error;
  OwnedVariant reply(g_dbus_connection_call_sync(
      m_connection.get(), m_busName.c_str(), "/test/recorder", "test.Recorder", method, arguments, nullptr,
      G_DBUS_CALL_FLAGS_NONE, static_cast<int>(kBound.count()), nullptr, error.Out()));
  ThrowIfSet(error, std::string("the recorder's ") + method);
  return reply;
}

void Recorder::SetReply(const std::string& method, GVariant* reply) {
  Call("SetReply", g_variant_new("(s@av)", method.c_str(), MembersOf(reply)));
}

void Recorder::FailNext(const std::string& method, unsigned count, const std::string& error,
                        const std::string& message) {
  Call("FailNext", g_variant_new("(suss)", method.c_str(), count, error.c_str(), message.c_str()));
}

void Recorder::ReplyWrongType(const std::string& method) {
  Call("ReplyWrongType", g_variant_new("(s)", method.c_str()));
}

void Recorder::Hang(const std::string& method) { Call("Hang", g_variant_new("(sb)", method.c_str(), TRUE)); }

void Recorder::Release(const std::string& method) {
  Call("Hang", g_variant_new("(sb)", method.c_str(), FALSE));
}

void Recorder::Delay(const std::string& method, std::chrono::milliseconds delay) {
  Call("Delay", g_variant_new("(su)", method.c_str(), static_cast<guint>(delay.count())));
}

void Recorder::DieOn(const std::string& method) { Call("DieOn", g_variant_new("(s)", method.c_str())); }

void Recorder::Reset() { Call("Reset"); }

std::vector<RecordedCall> Recorder::TakeCalls() {
  const OwnedVariant reply = Call("TakeCalls");
  const OwnedVariant list(g_variant_get_child_value(reply.get(), 0));
  std::vector<RecordedCall> calls;
  for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
    const char* method = nullptr;
    GVariant* members = nullptr;
    g_variant_get_child(list.get(), i, "(&s@av)", &method, &members);
    calls.push_back({method, TupleOf(OwnedVariant(members).get())});
  }
  return calls;
}

std::vector<std::string> Recorder::TakeCallTexts() {
  std::vector<std::string> texts;
  for (const RecordedCall& call : TakeCalls()) {
    texts.push_back(call.method + ToText(call.arguments.get()));
  }
  return texts;
}

bool Recorder::WaitForCalls(unsigned count, std::chrono::milliseconds bound) {
  const auto areThere = [&] {
    guint calls = 0;
    g_variant_get(Call("CountCalls").get(), "(u)", &calls);
    return calls >= count;
  };
  return WaitUntil(areThere, bound);
}

void Recorder::Emit(const std::string& signal, GVariant* arguments, unsigned times) {
  Call("Emit", g_variant_new("(s@avu)", signal.c_str(), MembersOf(arguments), times));
}

void Recorder::EmitRaw(const std::string& signal, GVariant* arguments) {
  Call("EmitRaw", g_variant_new("(s@av)", signal.c_str(), MembersOf(arguments)));
}

void Recorder::OwnName() { Call("OwnName"); }

void Recorder::ReleaseName() { Call("ReleaseName"); }

void Recorder::Quit() {
  Call("Quit");
  m_process.Wait();
}

}  // namespace bttest
