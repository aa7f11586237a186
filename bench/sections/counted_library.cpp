// Instructions of the library, around the generated calls and above bare handlers, and for the phone book.

#include <optional>
#include <stdexcept>
#include <string>

#include "bench/book/PhoneBook.h"
#include "bench/counted/Parts.h"
#include "bench/harness/Callgrind.h"
#include "bench/harness/MeasuredEvents.h"
#include "bench/harness/MeasuredRequests.h"
#include "bench/sections/CountedSections.h"

namespace {

constexpr double kLimitWithoutArguments = 110;
constexpr double kLimitWithAddress = 450;
constexpr double kLimitOfEvent = 300;

void ReportRequest(Report& report, const PartCosts& costs, const MeasuredRequest& request, const char* about,
                   std::optional<double> limit) {
  const std::string name = request.name;
  const double around =
      (CostOfPart(costs, name + kAroundTheCall) - CostOfPart(costs, kNothingPart)) / kCountedCalls;
  const double generated = CostOfPart(costs, name + kGeneratedCall) / kCountedCalls;
  report.Add({name + about, Instructions(generated + around), "the generated call", Instructions(generated),
              Instructions(around), limit});
}

double CostOfEvent(const PartCosts& costs, const Event& event, const char* part) {
  return CostOfPart(costs, event.name + std::string(part)) / kCountedEvents;
}

void ReportEvent(Report& report, const PartCosts& costs, const Event& event, std::optional<double> limit) {
  const double bare = CostOfEvent(costs, event, kToBareHandler);
  const double listener = CostOfEvent(costs, event, kToListener);
  report.Add({event.name, Instructions(listener), "a bare handler", Instructions(bare),
              Instructions(listener - bare), limit});
}

void ReportFurtherListener(Report& report, const PartCosts& costs) {
  const double one = CostOfEvent(costs, kSignalEvent, kToListener);
  const double many = CostOfEvent(costs, kSignalEvent, kToManyListeners);
  report.Add({"with 100 further listeners, each of them", Instructions(many), "one listener",
              Instructions(one), Instructions((many - one) / kFurtherListeners), std::nullopt});
}

void ReportBook(Report& report, const PartCosts& costs) {
  const auto contacts = static_cast<double>(MakeFullBook().size());
  const double pass = CostOfPart(costs, kBookPass);
  for (const auto& [part, name] : {std::pair(kBookIntoEmptyList, "a record, into an empty list"),
                                   std::pair(kBookIntoPreviousList, "a record, into the previous list")}) {
    report.Add({name, Instructions(CostOfPart(costs, part) / contacts), "a pass with memchr",
                Instructions(pass / contacts), Times(CostOfPart(costs, part) / pass), std::nullopt});
  }
}

}  // namespace

void CountLibrary(Report& report) {
  const PartCosts costs = CountParts("bt_bench_counted_library");
  report.BeginSection("requests",
                      "instructions of a request through a facade, and those above the generated call");
  ReportRequest(report, costs, kAcceptCall, "", kLimitWithoutArguments);
  ReportRequest(report, costs, kGetPowerStatus, "", kLimitWithoutArguments);
  ReportRequest(report, costs, kDisConnect, ", checks an address", kLimitWithAddress);
  ReportRequest(report, costs, kConnect, ", checks an address and logs", std::nullopt);

  report.BeginSection("events",
                      "instructions of an event heard by one listener, and those above a bare handler");
  ReportEvent(report, costs, kSignalEvent, kLimitOfEvent);
  ReportEvent(report, costs, kPositionEvent, kLimitOfEvent);
  ReportEvent(report, costs, kProfileEvent, std::nullopt);
  ReportFurtherListener(report, costs);

  report.BeginSection("contacts",
                      "instructions of GetContactList for each record, without the generated call");
  ReportBook(report, costs);
}
