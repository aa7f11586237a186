#include "libbtasync/BusBackend.h"

#include <atomic>
#include <iterator>
#include <utility>

#include "libbtasync/Context.h"
#include "libbtasync/Failures.h"
#include "libbtasync/Log.h"
#include "protocol/BusNames.h"

namespace btasync {
inline namespace v0 {
namespace detail {
namespace {

constexpr std::chrono::seconds kBetweenAttempts{1};
/// A bus that accepts a connection and then says nothing is given up.
constexpr std::chrono::seconds kLongestAttempt{25};

/// Where the session bus is; empty if that is not known. Not asked of GIO, which may start a bus for that,
/// and waits.
std::string SessionBusAddress() {
  const char* const address = g_getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address != nullptr && *address != '\0') {
    return address;
  }
  const OwnedText path(g_build_filename(g_get_user_runtime_dir(), "bus", nullptr));
  if (g_file_test(path.get(), G_FILE_TEST_EXISTS)) {
    return std::string("unix:path=") + OwnedText(g_dbus_address_escape_value(path.get())).get();
  }
  return "";
}

/// Takes arguments over if they are floating, and a reference else.
OwnedVariant Keep(GVariant* arguments) { return arguments != nullptr ? NewRef(arguments) : nullptr; }

struct GlibTimer {
  GSource* source;
  Backend::Wake wake;
  void* data;
};

}  // namespace

struct BusBackend::Link {
  std::atomic<int> references;
  BusBackend* backend;  ///< null once the connection is not its any more

  Link* Ref() {
    ++references;
    return this;
  }
  static void Unref(gpointer data) {
    auto* const link = static_cast<Link*>(data);
    if (--link->references == 0) {
      delete link;
    }
  }
  static void UnrefClosure(gpointer data, GClosure*) { Unref(data); }
};

struct BusBackend::SignalData {
  Link* link;
  const EventKind* kind;

  static void Free(gpointer data) {
    auto* const self = static_cast<SignalData*>(data);
    Link::Unref(self->link);
    delete self;
  }
};

struct BusBackend::Waiting {
  Waiting(Backend& backend, const char* method, GVariant* arguments, std::int64_t deadlineMs,
          PendingCall& call)
      : method(method), arguments(Keep(arguments)), deadlineMs(deadlineMs), call(call), timer(backend) {}
  ~Waiting() { call.Unref(); }

  const char* method;
  OwnedVariant arguments;
  std::int64_t deadlineMs;
  PendingCall& call;
  Timer timer;
};

BusBackend::BusBackend(GMainContext* context)
    : m_context(context != nullptr ? g_main_context_ref(context) : g_main_context_ref_thread_default()),
      m_attemptTimer(std::make_unique<Timer>(*this)) {
  Connect();
}

BusBackend::~BusBackend() = default;

// ----- Time

std::int64_t BusBackend::TimeMs() const { return g_get_monotonic_time() / 1000; }

void* BusBackend::StartTimer(int milliseconds, Wake wake, void* data) {
  const OwnedSource source(g_timeout_source_new(static_cast<guint>(milliseconds)));
  auto* const timer = new GlibTimer{source.get(), wake, data};
  g_source_set_callback(
      source.get(),
      [](gpointer data) -> gboolean {
        const auto* const timer = static_cast<GlibTimer*>(data);
        timer->wake(timer->data);
        return G_SOURCE_REMOVE;
      },
      timer, [](gpointer data) { delete static_cast<GlibTimer*>(data); });
  g_source_attach(source.get(), m_context.get());
  return timer;
}

void BusBackend::StopTimer(void* timer) { g_source_destroy(static_cast<GlibTimer*>(timer)->source); }

// ----- The connection

void BusBackend::Connect() {
  const std::string address = SessionBusAddress();
  if (address.empty()) {
    RetryLater("there is no session bus: neither DBUS_SESSION_BUS_ADDRESS nor $XDG_RUNTIME_DIR/bus");
    return;
  }
  m_link = new Link{1, this};
  m_attempt.reset(g_cancellable_new());
  const AsDefault asDefault(m_context.get());
  g_dbus_connection_new_for_address(
      address.c_str(),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, m_attempt.get(), OnConnected, m_link->Ref());
  m_attemptTimer->Start(kLongestAttempt, [this] { g_cancellable_cancel(m_attempt.get()); });
}

void BusBackend::OnConnected(GObject*, GAsyncResult* result, gpointer data) {
  auto* const link = static_cast<Link*>(data);
  OwnedError error;
  OwnedObject<GDBusConnection> connection(g_dbus_connection_new_for_address_finish(result, error.Out()));
  if (link->backend != nullptr) {
    BusBackend& self = *link->backend;
    if (!self.IsOwnThread("the loop of a service that it has not made")) {
      Link::Unref(link);
      return;  // all else is the other thread's
    }
    const BackendRef alive(self);
    self.m_attempt.reset();
    self.m_attemptTimer->Stop();
    if (connection != nullptr) {
      self.TakeConnection(connection.release());
    } else {
      self.Disconnect();
      self.RetryLater(error->message);
    }
  } else if (connection != nullptr) {
    g_dbus_connection_close(connection.get(), nullptr, nullptr, nullptr);
  }
  Link::Unref(link);
}

void BusBackend::RetryLater(const std::string& why) {
  LogDebug("no connection to the session bus: %s", why.c_str());
  m_attemptTimer->Start(kBetweenAttempts, [this] { Connect(); });
  SetAvailability(Availability::NoBus);
  FailWaiting(why);
}

void BusBackend::TakeConnection(GDBusConnection* connection) {
  m_connection.reset(connection);
  g_signal_connect_data(connection, "closed", G_CALLBACK(OnConnectionClosed), m_link->Ref(),
                        Link::UnrefClosure, static_cast<GConnectFlags>(0));
  const AsDefault asDefault(m_context.get());
  m_nameWatch.reset(g_bus_watch_name_on_connection(connection, kServiceName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                                                   OnNameAppeared, OnNameVanished, m_link->Ref(),
                                                   Link::Unref));
  for (const auto& [kind, subscribers] : AllSubscribers()) {
    if (!subscribers->IsEmpty()) {
      SubscribeSignal(*kind);
    }
  }
  if (g_dbus_connection_is_closed(connection)) {
    LoseConnection();  // its signal may have come before anybody listened
  } else {
    CallWaiting();
  }
}

void BusBackend::Disconnect() {
  if (m_link == nullptr) {
    return;
  }
  std::exchange(m_link->backend, nullptr);
  Link::Unref(std::exchange(m_link, nullptr));
  if (m_attempt != nullptr) {
    g_cancellable_cancel(m_attempt.get());
    m_attempt.reset();
  }
  if (m_connection != nullptr) {
    const AsDefault asDefault(m_context.get());
    m_nameWatch.reset();
    m_signals.clear();
    g_dbus_connection_close(m_connection.get(), nullptr, nullptr, nullptr);
    m_connection.reset();
  }
}

void BusBackend::LoseConnection() {
  Disconnect();
  RetryLater("the bus has closed it");
}

void BusBackend::OnConnectionClosed(GDBusConnection*, gboolean, GError*, gpointer data) {
  if (BusBackend* const self = static_cast<Link*>(data)->backend) {
    const BackendRef alive(*self);
    self->LoseConnection();
  }
}

void BusBackend::OnNameAppeared(GDBusConnection*, const gchar*, const gchar*, gpointer data) {
  if (BusBackend* const self = static_cast<Link*>(data)->backend) {
    const BackendRef alive(*self);
    self->m_hasAnswered = false;
    self->SetAvailability(Availability::Present);
  }
}

void BusBackend::OnNameVanished(GDBusConnection* connection, const gchar*, gpointer data) {
  BusBackend* const self = static_cast<Link*>(data)->backend;
  if (self != nullptr && connection != nullptr) {
    const BackendRef alive(*self);
    self->SetAvailability(Availability::Absent);
  }
}

void BusBackend::OnClosed() {
  m_attemptTimer.reset();
  Disconnect();
  m_waiting.clear();
}

void BusBackend::CloseLater() {
  const OwnedSource source(g_idle_source_new());
  g_source_set_priority(source.get(), G_PRIORITY_DEFAULT);
  g_source_set_callback(
      source.get(),
      [](gpointer data) -> gboolean {
        auto* const self = static_cast<BusBackend*>(data);
        self->Close();
        self->Unref();
        return G_SOURCE_REMOVE;
      },
      this, nullptr);
  g_source_attach(source.get(), m_context.get());
}

// ----- Requests

void BusBackend::SendCall(const char* method, GVariant* arguments, int timeoutMs, PendingCall& call) {
  if (m_connection != nullptr) {
    CallNow(method, arguments, timeoutMs, call);
    return;
  }
  if (m_link == nullptr) {
    const OwnedVariant unused = Keep(arguments);
    FailLater(call, Failure{Reason::NoBus, "there is no connection to a session bus"});
    call.Unref();
    return;
  }
  m_waiting.emplace_back(*this, method, arguments, TimeMs() + timeoutMs, call);
  const auto waiting = std::prev(m_waiting.end());
  waiting->timer.Start(std::chrono::milliseconds(timeoutMs), [this, waiting] {
    std::list<Waiting> own;
    own.splice(own.begin(), m_waiting, waiting);
    Reply reply;
    reply.failure = Failure{Reason::TimedOut, "the connection to the session bus did not come about in time"};
    waiting->call.Complete(reply);
  });
}

void BusBackend::SendPlan(const Plan& plan, GVariant* arguments, int timeoutMs, PendingCall& call) {
  plan.Start(*this, arguments, timeoutMs, call);
}

void BusBackend::CallNow(const char* method, GVariant* arguments, int timeoutMs, PendingCall& call) {
  const AsDefault asDefault(m_context.get());
  g_dbus_connection_call(m_connection.get(), kServiceName, kServicePath, kServiceInterface, method, arguments,
                         nullptr, G_DBUS_CALL_FLAGS_NONE, timeoutMs, nullptr, OnReply, &call);
}

void BusBackend::OnReply(GObject* connection, GAsyncResult* result, gpointer data) {
  PendingCall& call = *static_cast<PendingCall*>(data);
  OwnedError error;
  const OwnedVariant values(
      g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, error.Out()));
  if (!call.HasEnded()) {
    auto& self = static_cast<BusBackend&>(OwnerOf(call));
    Reply reply;
    reply.values = values.get();
    if (values != nullptr) {
      self.m_hasAnswered = true;
    } else {
      reply.failure = ToFailure(*error.get());
      if (reply.failure.reason == Reason::NoBus && G_OBJECT(self.m_connection.get()) == connection) {
        const BackendRef alive(self);
        self.LoseConnection();  // before the calls that fail by it
      }
    }
    call.Complete(reply);
  }
  call.Unref();
}

void BusBackend::CallWaiting() {
  while (!m_waiting.empty() && m_connection != nullptr) {
    Waiting& first = m_waiting.front();
    if (first.call.IsWanted()) {
      first.call.Ref();
      CallNow(first.method, first.arguments.get(),
              ToTimeout(std::chrono::milliseconds(first.deadlineMs - TimeMs())), first.call);
    }
    m_waiting.pop_front();
  }
}

void BusBackend::FailWaiting(const std::string& why) {
  std::list<Waiting> waiting;
  waiting.swap(m_waiting);
  for (const Waiting& one : waiting) {
    FailLater(one.call, Failure{Reason::NoBus, why});
  }
}

// ----- Events

void BusBackend::Watch(const EventKind& kind) {
  if (m_connection != nullptr) {
    SubscribeSignal(kind);
  }
}

void BusBackend::SubscribeSignal(const EventKind& kind) {
  if (kind.signal == nullptr) {
    return;
  }
  const AsDefault asDefault(m_context.get());
  m_signals[&kind] = OwnedSubscription(
      m_connection.get(),
      g_dbus_connection_signal_subscribe(m_connection.get(), kServiceName, kServiceInterface, kind.signal,
                                         kServicePath, nullptr, G_DBUS_SIGNAL_FLAGS_NONE, OnSignal,
                                         new SignalData{m_link->Ref(), &kind}, SignalData::Free));
}

void BusBackend::Unwatch(const EventKind& kind) { m_signals.erase(&kind); }

void BusBackend::OnSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                          GVariant* values, gpointer data) {
  const auto* const signal = static_cast<SignalData*>(data);
  if (BusBackend* const self = signal->link->backend) {
    self->DeliverSignal(*signal->kind, values);
  }
}

}  // namespace detail
}  // namespace v0
}  // namespace btasync
