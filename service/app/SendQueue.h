#ifndef SERVICE_APP_SENDQUEUE_H
#define SERVICE_APP_SENDQUEUE_H

#include <atomic>
#include <memory>

#include "glib/OwnedBus.h"

namespace btservice {

/// Counts what the process has handed to the bus and the bus has not taken yet. GLib keeps such messages in
/// memory without a limit: whoever sends by itself has to ask first, and calls, which are answered, are taken
/// in only while there is room (CallIntake).
class SendQueue {
 public:
  /// The count itself, which outlives the queue where another thread still uses it. Used on any thread.
  class Unsent {
   public:
    explicit Unsent(GDBusConnection* connection) : m_connection(NewRef(connection)) {}

    bool HasRoom() const;
    void OnSent(guint32 serial) { m_lastSent = serial; }

   private:
    OwnedObject<GDBusConnection> m_connection;
    std::atomic<guint32> m_lastSent{0};  ///< serial of the message that went out last
  };

  explicit SendQueue(GDBusConnection* connection);

  /// Whether there is room for more.
  bool HasRoom() const { return m_unsent->HasRoom(); }
  std::shared_ptr<const Unsent> Count() const { return m_unsent; }

 private:
  static GDBusMessage* OnMessage(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                 gpointer unsent);

  /// GLib's worker changes it, perhaps once more while this is destroyed.
  std::shared_ptr<Unsent> m_unsent;
  OwnedFilter m_filter;
};

}  // namespace btservice

#endif
