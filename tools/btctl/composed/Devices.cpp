#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <bluetooth/MWPBtCom.h>
#include <btasync/Service.h>

#include "btctl/base/Failure.h"
#include "btctl/bus/Diagnosis.h"
#include "btctl/commands/MakeRequest.h"
#include "btctl/composed/Composed.h"
#include "btctl/composed/Search.h"

// The list of devices. libbt has none of it but the names: what is paired, what a search finds, and where the
// report of the service ends come from libbtasync, which lives on the same loop.

namespace btctl {
namespace {

using namespace arg;

/// A device, and all that was heard of it.
struct KnownDevice {
  btasync::Address address;
  std::string name = {};
  bool isPaired = false;
  bool isFound = false;
  std::vector<MWPBtType::ProfileId> profiles = {};  ///< those that are connected
};

/// The devices, in the order in which they became known.
class KnownDevices {
 public:
  void Take(const std::vector<MWPTypeDevice>& paired) {
    // In the service's order, and before those that are known already.
    std::vector<KnownDevice> others = std::exchange(m_devices, {});
    for (const MWPTypeDevice& device : paired) {
      KnownDevice entry{btasync::Address(device.strAddr), device.strName, true};
      const auto known = Find(others, entry.address);
      if (known != others.end()) {
        entry.isFound = known->isFound;
        entry.profiles = std::move(known->profiles);
        others.erase(known);
      }
      m_devices.push_back(std::move(entry));
    }
    std::move(others.begin(), others.end(), std::back_inserter(m_devices));
  }
  void Take(const btasync::DeviceFound& found) {
    KnownDevice& device = Get(found.address);
    device.isFound = true;
    device.name = found.name.empty() ? device.name : found.name;
  }
  void Take(const btasync::ConnectionChanged& change) {
    std::vector<MWPBtType::ProfileId>& profiles = Get(change.address).profiles;
    profiles.erase(std::remove(profiles.begin(), profiles.end(), change.profile), profiles.end());
    if (change.status == MWPBtType::BT_CONN_CONNECTED) {
      profiles.push_back(change.profile);
    }
  }

  Json AsJson() const {
    Json items = Json::array();
    for (const KnownDevice& device : m_devices) {
      if (!device.isPaired && !device.isFound && device.profiles.empty()) {
        continue;  // heard of when its connection ended
      }
      Json profiles = Json::array();
      for (const MWPBtType::ProfileId profile : device.profiles) {
        profiles.push_back(WordsOf<MWPBtType::ProfileId>().Show(profile));
      }
      items.push_back({{"address", device.address.ToText()},
                       {"name", device.name},
                       {"paired", device.isPaired},
                       {"found", device.isFound},
                       {"connected", !device.profiles.empty()},
                       {"profiles", profiles}});
    }
    return items;
  }

 private:
  static std::vector<KnownDevice>::iterator Find(std::vector<KnownDevice>& devices,
                                                 const btasync::Address& address) {
    return std::find_if(devices.begin(), devices.end(),
                        [&](const KnownDevice& device) { return device.address == address; });
  }
  KnownDevice& Get(const btasync::Address& address) {
    const auto known = Find(m_devices, address);
    return known != m_devices.end() ? *known : m_devices.emplace_back(KnownDevice{address});
  }

  std::vector<KnownDevice> m_devices;
};

/// What btctl says of a request of libbtasync that has failed.
Failure FailureFor(const btasync::Failure& failure) {
  switch (failure.reason) {
    case btasync::Reason::NoBus:
    case btasync::Reason::NoService:
    case btasync::Reason::ServiceGone:
      return ServiceIsGone();
    case btasync::Reason::TimedOut:
      return {EXIT_TIMED_OUT, "the service did not answer in time"};
    default:
      return {EXIT_REFUSED, "the request failed: " + failure.detail};
  }
}

/// Makes a request of libbtasync, and iterates the loop until it is answered.
template <typename T>
T Await(Session& session, btasync::Request<T> request) {
  std::optional<btasync::Answer<T>> answer;
  btasync::Scope scope;
  std::move(request).Then(scope, [&](btasync::Answer<T> given) { answer.emplace(std::move(given)); });
  session.WaitUntil([&] { return answer.has_value(); });
  if (answer->Failed()) {
    throw FailureFor(answer->Why());
  }
  if (answer->Refused()) {
    throw Refused();
  }
  return **std::move(answer);
}

void ListDevices(Context& context, const Given& given) {
  const auto searchFor = MillisecondsOf(given[0]);
  Session& session = context.session;
  session.Start();  // says why there is no service, if there is none

  KnownDevices devices;
  bool isSearching = false;
  btasync::Service service;
  btasync::Scope scope;
  service.On<btasync::ConnectionChanged>(scope, [&](const auto& event) { devices.Take(event); });
  service.On<btasync::DeviceFound>(scope, [&](const auto& event) { devices.Take(event); });
  service.On<btasync::ScanChanged>(
      scope, [&](const auto& event) { isSearching = event.status == MWPBtType::BT_SCAN_SCANNING; });
  {
    const EventHub::OwnQuestion own(session.Events());
    Await(session, service.GetBluetoothServiceStatus());  // answered after the last event of the report
    // libbt's listeners hear the report too, over a connection of their own: before this answer.
    MakeRequest(session, Value(), CallOf([] { return MWPBtCom().GetPowerStatus(); }));
    session.DeliverArrived();
  }
  devices.Take(Await(session, service.PairedDevices()));

  if (searchFor.count() > 0) {
    if (!context.options.timeoutSeconds) {
      session.Begin(std::nullopt);  // it takes as long as it was asked to
    }
    if (isSearching) {
      context.output.Note("listening to a search that somebody else has begun");
      session.WaitUntil([&] { return !isSearching; }, searchFor);
    } else {
      SearchFor(context, searchFor, [](const Event&) {});
    }
    Await(session, service.GetPowerStatus());  // what was found has arrived before this answer
  }
  context.output.ShowList("device", devices.AsJson());
}

}  // namespace

std::vector<Command> DeviceCommands() {
  return {
      {"devices list",
       "Show the devices that are paired or connected; with --scan also those that a search finds",
       {Or(Text("--scan", "search for so many seconds"), "0")},
       {},
       Patience::A_WHILE,
       ListDevices},
  };
}

}  // namespace btctl
