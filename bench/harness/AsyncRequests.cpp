#include "bench/harness/AsyncRequests.h"

#include <stdexcept>

#include "protocol/BusNames.h"

namespace {

constexpr const char* kAddress = "00:1A:7D:DA:71:13";
constexpr const char* kPinCode = "1234";

void RunLoopUntil(const bool& isDone) {
  while (!isDone) {
    g_main_context_iteration(nullptr, TRUE);
  }
}

/// One call with its answer: read() takes the values.
template <typename Read>
void CallBare(GDBusConnection* connection, const char* method, GVariant* arguments, const char* replyType,
              Read read) {
  struct Call {
    Read& read;
    bool isDone = false;
  } call{read};
  g_dbus_connection_call(
      connection, kServiceName, kServicePath, kServiceInterface, method, arguments, G_VARIANT_TYPE(replyType),
      G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
      [](GObject* source, GAsyncResult* result, gpointer data) {
        auto& call = *static_cast<Call*>(data);
        OwnedError error;
        const OwnedVariant values(
            g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, error.Out()));
        if (values == nullptr) {
          throw std::runtime_error(error->message);
        }
        call.read(values.get());
        call.isDone = true;
      },
      &call);
  RunLoopUntil(call.isDone);
}

template <typename T>
void Ask(btasync::Request<T> request) {
  btasync::Scope scope;
  bool isDone = false;
  bool isAccepted = false;
  std::move(request).Then(scope, [&](const btasync::Answer<T>& answer) {
    isDone = true;
    isAccepted = answer.Accepted();
  });
  RunLoopUntil(isDone);
  if (!isAccepted) {
    throw std::runtime_error("a request was not accepted");
  }
}

void GetPowerStatusBare(GDBusConnection* connection) {
  guchar status = 0;
  CallBare(connection, "GetPowerStatus", nullptr, "(y)",
           [&](GVariant* values) { g_variant_get(values, "(y)", &status); });
}

void PairBare(GDBusConnection* connection) {
  guchar result = 0;
  CallBare(connection, "Pair", g_variant_new("(ss)", kAddress, kPinCode), "(y)",
           [&](GVariant* values) { g_variant_get(values, "(y)", &result); });
}

void GetMediaInfoBare(GDBusConnection* connection) {
  MWPTypeMediaInfo info;
  gboolean isThere = FALSE;
  CallBare(connection, "GetMediaInfo", nullptr, "(sssssssb)", [&](GVariant* values) {
    const char* texts[7];
    g_variant_get(values, "(&s&s&s&s&s&s&sb)", &texts[0], &texts[1], &texts[2], &texts[3], &texts[4],
                  &texts[5], &texts[6], &isThere);
    info = {texts[0], texts[1], texts[2], texts[3], texts[4], texts[5], texts[6]};
  });
}

}  // namespace

const std::array<AsyncRequest, 3> kAsyncRequests{{
    {"GetPowerStatus", GetPowerStatusBare, [](btasync::Service& service) { Ask(service.GetPowerStatus()); }},
    {"Pair", PairBare,
     [](btasync::Service& service) {
       Ask(service.Pair(btasync::Address(kAddress), btasync::PinCode(kPinCode)));
     }},
    {"GetMediaInfo", GetMediaInfoBare, [](btasync::Service& service) { Ask(service.GetMediaInfo()); }},
}};

OwnedObject<GDBusConnection> NewConnection() {
  OwnedError error;
  OwnedObject<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
      g_getenv("DBUS_SESSION_BUS_ADDRESS"),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, error.Out()));
  if (connection == nullptr) {
    throw std::runtime_error(error->message);
  }
  return connection;
}

void WaitUntilPresent(const btasync::Service& service) {
  while (service.Now() != btasync::Availability::Present) {
    g_main_context_iteration(nullptr, TRUE);
  }
}
