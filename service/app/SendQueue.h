#ifndef SERVICE_APP_SENDQUEUE_H
#define SERVICE_APP_SENDQUEUE_H

#include <atomic>
#include <memory>

#include <gio/gio.h>

namespace btservice {

/// Counts what the process has handed to the bus and the bus has not taken yet. GLib keeps such messages in
/// memory without a limit: whoever sends by itself has to ask first.
class SendQueue {
 public:
  explicit SendQueue(GDBusConnection* connection);
  ~SendQueue();
  SendQueue(const SendQueue&) = delete;
  SendQueue& operator=(const SendQueue&) = delete;

  /// Whether there is room for more. To be asked on the thread that sends.
  bool HasRoom() const;

 private:
  using Serial = std::atomic<guint32>;
  static GDBusMessage* OnMessage(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                 gpointer lastSent);

  GDBusConnection* m_connection;
  /// Of the message that went out last. GLib's worker writes it, perhaps once more while this is destroyed.
  std::shared_ptr<Serial> m_lastSent = std::make_shared<Serial>(0);
  guint m_filter;
};

}  // namespace btservice

#endif
