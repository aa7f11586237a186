#include "service/app/CallIntake.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace btservice {
namespace {

/// Calls are taken in batches: the next one when the main loop has answered the one before the last.
constexpr gsize kBytesOfABatch = gsize{128} << 10;
/// What a call takes in memory, apart from its arguments.
constexpr gsize kBytesOfACall = 1024;
/// How long a call waits for the main loop at most: longer than any call takes. Nothing that runs there may
/// wait for an answer of a bus, which comes through GLib's thread; should it do so, it is not for ever.
constexpr std::chrono::seconds kMostWaiting{10};

gsize SizeOf(GDBusMessage* call) {
  GVariant* const arguments = g_dbus_message_get_body(call);
  return kBytesOfACall + (arguments != nullptr ? g_variant_get_size(arguments) : 0);
}

}  // namespace

/// What the thread of the main loop and GLib's worker share.
class CallIntake::Gate : public std::enable_shared_from_this<Gate> {
 public:
  Gate(GDBusConnection* connection, std::shared_ptr<const SendQueue::Unsent> unsent)
      : m_unsent(std::move(unsent)), m_cancellable(g_cancellable_new()) {
    GIOStream* const stream = g_dbus_connection_get_stream(connection);
    if (G_IS_SOCKET_CONNECTION(stream)) {
      m_socket = NewRef(g_socket_connection_get_socket(G_SOCKET_CONNECTION(stream)));
    }
  }

  /// Returns when the call may be taken. On GLib's worker.
  void Pass(GDBusMessage* call) {
    WaitForTheBus();
    m_bytes += SizeOf(call);
    if (m_bytes >= kBytesOfABatch) {
      m_bytes = 0;
      WaitForTheMainLoop();
      NoteTheEndOfABatch();
    }
  }

  void Open() {
    g_cancellable_cancel(m_cancellable.get());
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isOpen = true;
    m_changed.notify_all();
  }

 private:
  /// Waits until the bus takes something, if too much is unsent. Ends as well if the connection is closed.
  void WaitForTheBus() {
    if (m_socket != nullptr && !m_unsent->HasRoom()) {
      g_socket_condition_wait(m_socket.get(), G_IO_OUT, m_cancellable.get(), nullptr);
    }
  }

  void WaitForTheMainLoop() {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, kMostWaiting, [this] { return m_isOpen || m_batches == 0; });
  }

  void NoteTheEndOfABatch() {
    {
      const std::lock_guard<std::mutex> lock(m_mutex);
      ++m_batches;
    }
    // Comes after the calls that were taken so far: they have the same priority.
    g_main_context_invoke_full(
        nullptr, G_PRIORITY_DEFAULT,
        [](gpointer gate) -> gboolean {
          (*static_cast<std::shared_ptr<Gate>*>(gate))->OnBatchAnswered();
          return G_SOURCE_REMOVE;
        },
        new std::shared_ptr<Gate>(shared_from_this()),
        [](gpointer gate) { delete static_cast<std::shared_ptr<Gate>*>(gate); });
  }

  void OnBatchAnswered() {
    const std::lock_guard<std::mutex> lock(m_mutex);
    --m_batches;
    m_changed.notify_all();
  }

  std::shared_ptr<const SendQueue::Unsent> m_unsent;
  OwnedObject<GSocket> m_socket;
  OwnedObject<GCancellable> m_cancellable;
  gsize m_bytes = 0;  ///< of the batch that is being taken. Only used on GLib's worker
  std::mutex m_mutex;
  std::condition_variable m_changed;
  bool m_isOpen = false;
  int m_batches = 0;  ///< that were taken and that the main loop has not finished
};

CallIntake::CallIntake(GDBusConnection* connection, const SendQueue& queue)
    : m_gate(std::make_shared<Gate>(connection, queue.Count())),
      m_filter(connection, g_dbus_connection_add_filter(
                               connection, &CallIntake::OnMessage, new std::shared_ptr<Gate>(m_gate),
                               [](gpointer gate) { delete static_cast<std::shared_ptr<Gate>*>(gate); })) {}

CallIntake::~CallIntake() { m_gate->Open(); }

GDBusMessage* CallIntake::OnMessage(GDBusConnection*, GDBusMessage* message, gboolean incoming,
                                    gpointer gate) {
  if (incoming != FALSE && g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
    (*static_cast<std::shared_ptr<Gate>*>(gate))->Pass(message);
  }
  return message;
}

}  // namespace btservice
