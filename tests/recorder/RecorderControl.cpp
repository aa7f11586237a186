#include "recorder/RecorderControl.h"

#include "recorder/TupleMembers.h"
#include "support/GlibHelpers.h"

namespace {

constexpr const char* kPath = "/test/recorder";
constexpr unsigned kPrimaryOwner = 1;
constexpr unsigned kDoNotQueue = 4;

std::string TextAt(GVariant* arguments, gsize index) {
  return g_variant_get_string(OwnedVariant(g_variant_get_child_value(arguments, index)).get(), nullptr);
}

unsigned NumberAt(GVariant* arguments, gsize index) {
  return g_variant_get_uint32(OwnedVariant(g_variant_get_child_value(arguments, index)).get());
}

/// The tuple whose members are at that place.
OwnedVariant TupleAt(GVariant* arguments, gsize index) {
  return bttest::TupleOf(OwnedVariant(g_variant_get_child_value(arguments, index)).get());
}

void RequireType(GVariant* values, GDBusArgInfo** described, const std::string& name) {
  const std::string signature = TupleSignature(described);
  if (signature != g_variant_get_type_string(values)) {
    throw std::invalid_argument(name + " takes " + signature + ", not " + g_variant_get_type_string(values));
  }
}

}  // namespace

RecorderControl::RecorderControl(GDBusConnection* connection, GDBusInterfaceInfo* interface,
                                 RecordingService& service, GMainLoop* loop)
    : m_connection(connection), m_service(service), m_loop(loop) {
  static const GDBusInterfaceVTable vtable = {OnCall, nullptr, nullptr, {}};
  OwnedError error;
  g_dbus_connection_register_object(connection, kPath, interface, &vtable, this, nullptr, error.Out());
  bttest::ThrowIfSet(error, "exporting the control interface");
}

void RecorderControl::OnCall(GDBusConnection*, const char*, const char*, const char*, const char* method,
                             GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) {
  try {
    g_dbus_method_invocation_return_value(invocation,
                                          static_cast<RecorderControl*>(self)->Do(method, arguments));
  } catch (const std::exception& problem) {
    g_dbus_method_invocation_return_error_literal(invocation, G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS,
                                                  problem.what());
  }
}

GVariant* RecorderControl::Do(const std::string& method, GVariant* arguments) {
  if (method == "TakeCalls") {
    GVariant* calls = m_service.TakeCalls();
    return g_variant_new_tuple(&calls, 1);
  } else if (method == "CountCalls") {
    return g_variant_new("(u)", m_service.CallCount());
  } else if (method == "Emit") {
    return Emit(arguments);
  } else if (method == "EmitRaw") {
    m_service.Emit(TextAt(arguments, 0).c_str(), TupleAt(arguments, 1).get());
  } else if (method == "SetReply") {
    return SetReply(arguments);
  } else if (method == "FailNext") {
    Answer& answer = AnswerOf(arguments);
    answer.failures = NumberAt(arguments, 1);
    answer.error = TextAt(arguments, 2);
    answer.message = TextAt(arguments, 3);
  } else if (method == "ReplyWrongType") {
    AnswerOf(arguments).isWrongType = true;
  } else if (method == "Hang") {
    AnswerOf(arguments).hangs = true;
    if (!g_variant_get_boolean(OwnedVariant(g_variant_get_child_value(arguments, 1)).get())) {
      m_service.Release(TextAt(arguments, 0).c_str());
    }
  } else if (method == "Delay") {
    AnswerOf(arguments).delay = NumberAt(arguments, 1);
  } else if (method == "DieOn") {
    AnswerOf(arguments).dies = true;
  } else if (method == "Reset") {
    m_service.Reset();
  } else if (method == "OwnName") {
    OwnName();
  } else if (method == "ReleaseName") {
    ReleaseName();
  } else if (method == "Quit") {
    g_main_loop_quit(m_loop);
  }
  return nullptr;
}

GVariant* RecorderControl::Emit(GVariant* arguments) {
  const std::string signal = TextAt(arguments, 0);
  const OwnedVariant values = TupleAt(arguments, 1);
  const GDBusSignalInfo* const info =
      g_dbus_interface_info_lookup_signal(m_service.Interface(), signal.c_str());
  if (info == nullptr) {
    throw std::invalid_argument("there is no signal '" + signal + "'");
  }
  RequireType(values.get(), info->args, signal);
  for (unsigned times = NumberAt(arguments, 2); times > 0; --times) {
    m_service.Emit(signal.c_str(), values.get());
  }
  return nullptr;
}

GVariant* RecorderControl::SetReply(GVariant* arguments) {
  Answer& answer = AnswerOf(arguments);
  const std::string method = TextAt(arguments, 0);
  OwnedVariant values = TupleAt(arguments, 1);
  RequireType(values.get(),
              g_dbus_interface_info_lookup_method(m_service.Interface(), method.c_str())->out_args, method);
  answer.reply = std::move(values);
  return nullptr;
}

Answer& RecorderControl::AnswerOf(GVariant* arguments) {
  const std::string method = TextAt(arguments, 0);
  Answer* const answer = m_service.AnswerOf(method.c_str());
  if (answer == nullptr) {
    throw std::invalid_argument("there is no method '" + method + "'");
  }
  return *answer;
}

unsigned RecorderControl::CallBus(const char* method, GVariant* arguments) {
  OwnedError error;
  const OwnedVariant reply(g_dbus_connection_call_sync(
      m_connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
      arguments, G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, error.Out()));
  bttest::ThrowIfSet(error, method);
  return NumberAt(reply.get(), 0);
}

void RecorderControl::OwnName() {
  const char* const name = m_service.Interface()->name;
  if (CallBus("RequestName", g_variant_new("(su)", name, kDoNotQueue)) != kPrimaryOwner) {
    throw std::runtime_error(std::string(name) + " is taken");
  }
}

void RecorderControl::ReleaseName() {
  CallBus("ReleaseName", g_variant_new("(s)", m_service.Interface()->name));
}
