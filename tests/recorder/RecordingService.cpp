#include "recorder/RecordingService.h"

#include <utility>

#include <unistd.h>

#include "protocol/BusNames.h"
#include "recorder/TupleMembers.h"
#include "recorder/ZeroValue.h"
#include "support/GlibHelpers.h"

namespace {

constexpr int kDiedOnPurpose = 9;

}  // namespace

std::string TupleSignature(GDBusArgInfo** arguments) {
  std::string signature = "(";
  for (GDBusArgInfo** argument = arguments; argument != nullptr && *argument != nullptr; ++argument) {
    signature += (*argument)->signature;
  }
  return signature + ")";
}

RecordingService::RecordingService(GDBusConnection* connection, GDBusInterfaceInfo* interface)
    : m_connection(connection), m_interface(interface) {
  static const GDBusInterfaceVTable vtable = {OnCall, nullptr, nullptr, {}};
  OwnedError error;
  g_dbus_connection_register_object(connection, kServicePath, interface, &vtable, this, nullptr, error.Out());
  bttest::ThrowIfSet(error, "exporting the interface");
}

Answer* RecordingService::AnswerOf(const char* method) {
  return g_dbus_interface_info_lookup_method(m_interface, method) != nullptr ? &m_answers[method] : nullptr;
}

void RecordingService::Release(const char* method) {
  Answer& answer = m_answers[method];
  answer.hangs = false;
  for (GDBusMethodInvocation* const invocation : std::exchange(answer.unanswered, {})) {
    Respond(invocation);
  }
}

void RecordingService::Reset() {
  for (const auto& entry : m_answers) {
    Release(entry.first.c_str());
  }
  m_answers.clear();
}

GVariant* RecordingService::TakeCalls() {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE("a(sav)"));
  for (const Call& call : m_calls) {
    g_variant_builder_add(&builder, "(s@av)", call.method.c_str(), bttest::MembersOf(call.arguments.get()));
  }
  m_calls.clear();
  return g_variant_builder_end(&builder);
}

void RecordingService::Emit(const char* signal, GVariant* arguments) {
  OwnedError error;
  g_dbus_connection_emit_signal(m_connection, nullptr, kServicePath, m_interface->name, signal, arguments,
                                error.Out());
  bttest::ThrowIfSet(error, std::string("sending ") + signal);
}

void RecordingService::OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                              GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) {
  static_cast<RecordingService*>(self)->Take(method, arguments, invocation);
}

void RecordingService::Take(const char* method, GVariant* arguments, GDBusMethodInvocation* invocation) {
  m_calls.push_back({method, NewRef(arguments)});
  Answer& answer = m_answers[method];
  if (answer.dies) {
    _exit(kDiedOnPurpose);
  } else if (answer.hangs) {
    answer.unanswered.push_back(invocation);
  } else if (answer.delay > 0) {
    struct Later {
      RecordingService* self;
      GDBusMethodInvocation* invocation;
    };
    g_timeout_add_full(
        G_PRIORITY_DEFAULT, answer.delay,
        [](gpointer data) -> gboolean {
          const auto* const later = static_cast<Later*>(data);
          later->self->Respond(later->invocation);
          return G_SOURCE_REMOVE;
        },
        new Later{this, invocation}, [](gpointer data) { delete static_cast<Later*>(data); });
  } else {
    Respond(invocation);
  }
}

void RecordingService::Respond(GDBusMethodInvocation* invocation) {
  Answer& answer = m_answers[g_dbus_method_invocation_get_method_name(invocation)];
  if (answer.failures > 0) {
    --answer.failures;
    g_dbus_method_invocation_return_dbus_error(invocation, answer.error.c_str(), answer.message.c_str());
  } else if (answer.isWrongType) {
    SendWrongType(invocation);
  } else if (answer.reply != nullptr) {
    g_dbus_method_invocation_return_value(invocation, answer.reply.get());
  } else {
    const GDBusMethodInfo* const info = g_dbus_method_invocation_get_method_info(invocation);
    const std::string signature = TupleSignature(info->out_args);
    g_dbus_method_invocation_return_value(invocation, ZeroValue(G_VARIANT_TYPE(signature.c_str())));
  }
}

void RecordingService::SendWrongType(GDBusMethodInvocation* invocation) {
  // As a message of our own making: GDBus sends no values that do not match the description.
  const GDBusMethodInfo* const info = g_dbus_method_invocation_get_method_info(invocation);
  const bool isText = TupleSignature(info->out_args) == "(s)";
  const OwnedObject<GDBusMessage> message(
      g_dbus_message_new_method_reply(g_dbus_method_invocation_get_message(invocation)));
  g_dbus_message_set_body(message.get(),
                          isText ? g_variant_new("(i)", 42) : g_variant_new("(s)", "wrong type"));
  const OwnedObject<GDBusMethodInvocation> unanswered(invocation);
  OwnedError error;
  g_dbus_connection_send_message(m_connection, message.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                 error.Out());
  bttest::ThrowIfSet(error, "sending a reply");
}
