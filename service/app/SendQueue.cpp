#include "service/app/SendQueue.h"

namespace btservice {
namespace {

/// Signals and answers are small: this is some hundred kilobytes.
constexpr guint32 kMostUnsent = 1000;

}  // namespace

bool SendQueue::Unsent::HasRoom() const {
  // Serials are given out in the order in which messages are queued.
  const guint32 lastQueued = g_dbus_connection_get_last_serial(m_connection.get());
  const guint32 lastSent = m_lastSent;
  return lastQueued <= lastSent || lastQueued - lastSent <= kMostUnsent;
}

SendQueue::SendQueue(GDBusConnection* connection)
    : m_unsent(std::make_shared<Unsent>(connection)),
      m_filter(connection,
               g_dbus_connection_add_filter(
                   connection, &SendQueue::OnMessage, new std::shared_ptr<Unsent>(m_unsent),
                   [](gpointer unsent) { delete static_cast<std::shared_ptr<Unsent>*>(unsent); })) {}

GDBusMessage* SendQueue::OnMessage(GDBusConnection*, GDBusMessage* message, gboolean incoming,
                                   gpointer unsent) {
  if (incoming == FALSE) {
    (*static_cast<std::shared_ptr<Unsent>*>(unsent))->OnSent(g_dbus_message_get_serial(message));
  }
  return message;
}

}  // namespace btservice
