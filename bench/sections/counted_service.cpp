// Instructions with which btservice answers a request, next to an empty skeleton that does.

#include <stdexcept>
#include <string>
#include <vector>

#include <gio/gio.h>

#include "bench/harness/Callgrind.h"
#include "bench/sections/CountedSections.h"
#include "glib/Owned.h"
#include "protocol/BusNames.h"

namespace {

constexpr double kLimit = 1.05;
constexpr unsigned kRequests = 200;
constexpr unsigned kMostTries = 1200;
constexpr gulong kBetweenTries = 50000;  // microseconds

/// Asks once; false if nobody answers.
bool AskForPower(GDBusConnection* connection) {
  const OwnedVariant reply(g_dbus_connection_call_sync(
      connection, kServiceName, kServicePath, kServiceInterface, "GetPowerStatus", nullptr,
      G_VARIANT_TYPE("(y)"), G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr));
  return reply != nullptr;
}

void WaitUntilAnswered(GDBusConnection* connection, const std::string& program) {
  for (unsigned tries = 0; !AskForPower(connection); ++tries) {
    if (tries == kMostTries) {
      throw std::runtime_error(program + " does not answer");
    }
    g_usleep(kBetweenTries);
  }
}

/// What a service needs for a life with that many requests.
double CountLife(GDBusConnection* connection, const std::string& program,
                 const std::vector<std::string>& arguments, unsigned requests) {
  CountedProcess service(program, arguments);
  WaitUntilAnswered(connection, program);
  for (unsigned i = 0; i < requests; ++i) {
    if (!AskForPower(connection)) {
      throw std::runtime_error(program + " has not answered");
    }
  }
  return service.End();
}

/// By two lives, one with more requests than the other: start and end are in both.
double CountAnswer(GDBusConnection* connection, const std::string& program,
                   const std::vector<std::string>& arguments = {}) {
  const double fewer = CountLife(connection, program, arguments, kRequests);
  const double more = CountLife(connection, program, arguments, 2 * kRequests);
  return (more - fewer) / kRequests;
}

}  // namespace

void CountService(Report& report) {
  const OwnedObject<GDBusConnection> connection(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (connection == nullptr) {
    throw std::runtime_error("there is no session bus; script/bench provides one");
  }
  const double skeleton = CountAnswer(connection.get(), "bt_bench_responder");
  const double service = CountAnswer(connection.get(), "btservice", {"--no-state", "--world=empty"});
  report.BeginSection("service", "instructions with which a service answers a request, in all its threads");
  report.Add({"GetPowerStatus, btservice", Instructions(service), "an empty skeleton", Instructions(skeleton),
              Times(service / skeleton), kLimit});
}
