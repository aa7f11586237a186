#include "fakes/AnswerRules.h"

#include <utility>

namespace fakes {
namespace {

/// "StartDiscovery", or "Set Powered".
std::string MethodOf(GDBusMessage* call) {
  std::string member = g_dbus_message_get_member(call);
  GVariant* const arguments = g_dbus_message_get_body(call);
  if (member != "Set" || arguments == nullptr ||
      g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ssv)")) == FALSE) {
    return member;
  }
  const OwnedVariant property(g_variant_get_child_value(arguments, 1));
  return member + " " + g_variant_get_string(property.get(), nullptr);
}

}  // namespace

AnswerRules::AnswerRules(GDBusConnection* connection, std::string except)
    : m_except(std::move(except)),
      m_filter(connection, g_dbus_connection_add_filter(connection, &AnswerRules::OnMessage, this, nullptr)) {
}

void AnswerRules::SetRule(const std::string& method, Rule rule) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_rules[method] = std::move(rule);
}

void AnswerRules::Refuse(const std::string& method, const std::string& error, const std::string& message) {
  SetRule(method, {error, message, {}});
}

void AnswerRules::Hang(const std::string& method) { SetRule(method, {}); }

void AnswerRules::AnswerWith(const std::string& method, GVariant* tuple) {
  SetRule(method, {"", "", NewRef(tuple)});
}

void AnswerRules::Clear() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_rules.clear();
}

std::vector<std::string> AnswerRules::Calls() {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_calls;
}

GDBusMessage* AnswerRules::OnMessage(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                     gpointer self) {
  if (incoming != FALSE && g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL &&
      static_cast<AnswerRules*>(self)->Take(connection, message)) {
    const OwnedObject<GDBusMessage> taken(message);
    return nullptr;
  }
  return message;
}

bool AnswerRules::Take(GDBusConnection* connection, GDBusMessage* call) {
  const gchar* const interface = g_dbus_message_get_interface(call);
  if (interface != nullptr && std::string(interface).rfind(m_except, 0) == 0) {
    return false;
  }
  const std::lock_guard<std::mutex> lock(m_mutex);
  const std::string method = MethodOf(call);
  m_calls.push_back(method);
  const auto found = m_rules.find(method);
  if (found == m_rules.end()) {
    return false;
  }
  const Rule& rule = found->second;
  OwnedObject<GDBusMessage> reply;
  if (!rule.error.empty()) {
    reply.reset(g_dbus_message_new_method_error_literal(call, rule.error.c_str(), rule.message.c_str()));
  } else if (rule.answer) {
    reply.reset(g_dbus_message_new_method_reply(call));
    g_dbus_message_set_body(reply.get(), rule.answer.get());
  }
  if (reply) {
    g_dbus_connection_send_message(connection, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
  }
  return true;
}

}  // namespace fakes
