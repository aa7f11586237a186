#ifndef BENCH_HARNESS_ASYNCREQUESTS_H
#define BENCH_HARNESS_ASYNCREQUESTS_H

#include <array>
#include <string>

#include <gio/gio.h>

#include <btasync/Service.h>

#include "glib/Owned.h"

// The requests of libbtasync that are measured, and the same by g_dbus_connection_call alone. Each runs the
// default loop until the answer is there, in the form in which an application uses it.

struct AsyncRequest {
  const char* name;
  void (*bare)(GDBusConnection* connection);
  void (*throughLibrary)(btasync::Service& service);
};

/// Without arguments, with two texts, and one whose answer is a record of seven texts.
extern const std::array<AsyncRequest, 3> kAsyncRequests;

/// A connection of its own, as the library has one.
OwnedObject<GDBusConnection> NewConnection();
/// Runs the loop until the service is there.
void WaitUntilPresent(const btasync::Service& service);

#endif
