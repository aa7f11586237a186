#include "soak/Soak.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <stdexcept>

#include "support/MainLoop.h"
#include "support/Segments.h"

namespace btsoak {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 60s;  ///< a machine may have more to do than this
constexpr const char* kPhone = "00:1A:7D:DA:71:13";
constexpr int kRequestsPerSecond = 320;  ///< of each application, at most
constexpr auto kTick = 20ms;             ///< two events in each
constexpr auto kBetweenFaults = 400ms;
constexpr auto kBetweenFaultsOfLastBus = 2s;
constexpr int kAnswersDelayed = 200;
constexpr int kMillisecondsOfDelay = 300;
constexpr int kAnswersRefused = 20;
constexpr int kMillisecondsOffBus = 150;
constexpr std::size_t kLossesPrinted = 20;

#ifdef __SANITIZE_ADDRESS__
// What is freed is kept for a while there, so that the memory of a process says nothing.
constexpr bool kMemoryCounts = false;
#else
constexpr bool kMemoryCounts = true;
#endif
/// How much more an application may have in use at its end without anything being lost. A byte for each call
/// would be more than that within half an hour.
constexpr long kKilobytesOfSlack = 256;

}  // namespace

const std::array<const char*, FAULTS> kFaultTexts = {
    "answers delayed (200 by 0.3 s each time)",  "answers refused (20 each time)",
    "the service has left the bus for 0.15 s",   "the service was killed and started again",
    "the service was stopped and started again", "the bus was killed and started again",
};

std::vector<std::string> SoakResult::Omissions() const {
  std::vector<std::string> omissions;
  if (sum.calls == 0) {
    omissions.emplace_back("calls over the bus");
  }
  if (sum.deliveries == 0) {
    omissions.emplace_back("deliveries to listeners");
  }
  for (int i = 0; i < FAULTS; ++i) {
    if (faults[i] == 0) {
      omissions.emplace_back(kFaultTexts[i]);
    }
  }
  return omissions;
}

Soak::Soak(std::chrono::seconds duration) : m_duration(duration) {}

SoakResult Soak::Run() {
  const auto begin = Clock::now();
  try {
    m_result.segmentsAtStart = -1;
    // Once at least, however short it is.
    do {
      LiveWithOneBus(begin);
    } while (Clock::now() < begin + m_duration / 3);
    LiveWithOneBus(begin + m_duration);
    m_result.segmentsAtEnd = bttest::CountSegments();
    if (m_result.segmentsAtEnd != m_result.segmentsAtStart) {
      Lose("there are other shared segments at the end than at the start");
    }
    if (m_refused != m_toRefuse) {
      Lose(std::to_string(m_toRefuse) + " answers were refused, and " + std::to_string(m_refused) +
           " reported so");
    }
  } catch (const std::exception& failure) {
    Lose(failure.what());
  }
  m_result.seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  return m_result;
}

// One bus: a new service, and new applications, until the end, but for one fault of each kind at least.
void Soak::LiveWithOneBus(Clock::time_point end) {
  m_outages.Begin(g_get_monotonic_time());
  m_service = std::make_unique<btservice::RunningService>(std::vector<std::string>{"--world", BTSOAK_WORLD},
                                                          btservice::RunningService::Begin::LATER);
  StartService();
  for (int i = 0; i < kClients; ++i) {
    m_clients.push_back(std::make_unique<SoakClient>(
        kRequestsPerSecond, SoakClient::Hearer{[this](const FailedRequest& request) { HearFailure(request); },
                                               [this](const std::string& what) { Lose(what); }}));
  }
  WaitForClients("to start", [](SoakClient& client) { return client.HasStarted(); });
  Mark();
  m_outages.End(g_get_monotonic_time());
  if (m_result.segmentsAtStart < 0) {
    m_result.segmentsAtStart = bttest::CountSegments();
  }

  for (int i = 0; i < BUS_RESTARTED; ++i) {
    MeetNextFault();
    Live(kBetweenFaults);
  }
  std::vector<Usage> usages;
  for (const Report& report : AskForReports()) {
    usages.push_back({report, {}});
  }
  do {
    MeetNextFault();
    const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
    Live(std::clamp<std::chrono::milliseconds>(rest, kBetweenFaults, kBetweenFaultsOfLastBus));
  } while (Clock::now() < end);

  LoseBus();
  const std::vector<Report> reports = AskForReports();
  for (int i = 0; i < kClients; ++i) {
    usages[i].atEnd = reports[i];
    m_result.sum.Add(reports[i]);
  }
  CheckGrowth(usages);
  m_result.longest = usages;
  for (auto& client : m_clients) {
    client->Dismiss();
  }
  WaitForClients("to end", [](SoakClient& client) { return client.HasEnded(); });
  for (auto& client : m_clients) {
    if (!client->HasEndedWell()) {
      Lose("an application has not ended with status 0");
    }
  }
  m_clients.clear();
  m_outages.End(g_get_monotonic_time());
  m_service.reset();
}

// The service

void Soak::StartService() {
  m_service->Start();
  m_event.service++;
  m_event.sureBefore = m_event.number;
  m_event.number = 0;
}

void Soak::StopService(Fault how) {
  if (how == KILLED) {
    m_service->Process().Kill();
  } else {
    m_service->Process().Signal(SIGTERM);
    if (m_service->Process().Wait() != 0) {
      Lose("the service has not ended with status 0");
    }
  }
}

// Faults

void Soak::MeetNextFault() {
  const auto fault = static_cast<Fault>(m_nextFault);
  m_nextFault = (m_nextFault + 1) % BUS_RESTARTED;
  switch (fault) {
    case DELAYED:
      Delay();
      break;
    case REFUSED:
      Refuse();
      break;
    case LEFT:
      LeaveBus();
      break;
    default:
      ReplaceService(fault);
      break;
  }
  ++m_result.faults[fault];
}

void Soak::Delay() {
  m_service->CallControl("DelayAnswers", g_variant_new("(suu)", "*", kAnswersDelayed, kMillisecondsOfDelay));
}

void Soak::Refuse() {
  m_service->CallControl("FailAnswers", g_variant_new("(suss)", "GetRemotePairDeviceName", kAnswersRefused,
                                                      "org.example.Refused", "not now"));
  m_toRefuse += kAnswersRefused;
  WaitForClients("to be refused what they asked for",
                 [this](SoakClient&) { return m_refused >= m_toRefuse; });
}

void Soak::LeaveBus() {
  m_outages.Begin(g_get_monotonic_time());
  m_service->CallControl("LeaveBus", g_variant_new("(u)", kMillisecondsOffBus));
  if (!bttest::RunUntil([this] {
        ReadClients();
        return !m_service->Owner().empty();
      })) {
    throw std::runtime_error("the service has left the bus and does not come back");
  }
  Mark();
  m_outages.End(g_get_monotonic_time());
}

void Soak::ReplaceService(Fault how) {
  m_outages.Begin(g_get_monotonic_time());
  StopService(how);
  StartService();
  Mark();
  m_outages.End(g_get_monotonic_time());
}

// The applications live on, and their requests fail. The service ends by itself.
void Soak::LoseBus() {
  Mark();
  m_outages.Begin(g_get_monotonic_time());
  std::map<SoakClient*, long> failures;
  for (const auto& client : m_clients) {
    failures[client.get()] = client->Failures();
  }
  m_service->Bus().Stop();
  WaitForClients("to fail without a bus",
                 [&](SoakClient& client) { return client.Failures() > failures[&client] + 10; });
  if (m_service->Process().Wait() != 0) {
    Lose("the service has not ended with status 0 when its bus had gone");
  }
  ++m_result.faults[BUS_RESTARTED];
}

// Ordinary life

void Soak::Live(std::chrono::milliseconds duration) {
  const auto end = Clock::now() + duration;
  for (auto next = Clock::now(); next < end; next = std::max(next + kTick, Clock::now())) {
    bttest::RunUntil([next] { return Clock::now() >= next; });
    SendEvent();
    m_bars = (m_bars + 1) % 6;
    m_service->CallControl("SetSignal", g_variant_new("(si)", kPhone, m_bars));
    ++m_result.signals;
    ReadClients();
  }
  m_service->ForgetSignals();
}

void Soak::SendEvent(bool mark) {
  ++m_event.number;
  m_event.mark = mark;
  GVariantBuilder values;
  g_variant_builder_init(&values, G_VARIANT_TYPE("av"));
  g_variant_builder_add(&values, "v", g_variant_new_string(m_event.Text().c_str()));
  m_service->CallControl("EmitSignal", g_variant_new("(sav)", "OnOperatorNameChanged", &values));
  ++m_result.signals;
}

void Soak::Mark() {
  SendEvent(true);
  WaitForClients("to hear '" + m_event.Text() + "'",
                 [this](SoakClient& client) { return client.HasHeard(m_event); });
}

void Soak::ReadClients() {
  for (const auto& client : m_clients) {
    client->Read();
  }
}

template <typename Condition>
void Soak::WaitForClients(const std::string& what, Condition condition) {
  const auto isSo = [&](const auto& client) { return condition(*client); };
  if (!bttest::RunUntil(
          [&] {
            ReadClients();
            return std::all_of(m_clients.begin(), m_clients.end(), isSo);
          },
          kPatience)) {
    throw std::runtime_error(
        "in vain, " + std::to_string(std::count_if(m_clients.begin(), m_clients.end(), std::not_fn(isSo))) +
        " applications were waited for " + what);
  }
}

std::vector<Report> Soak::AskForReports() {
  for (const auto& client : m_clients) {
    client->AskForReport();
  }
  WaitForClients("to report", [](SoakClient& client) { return client.HasReported(); });
  std::vector<Report> reports;
  for (const auto& client : m_clients) {
    reports.push_back(client->LastReport());
  }
  return reports;
}

// What must not be

void Soak::Lose(const std::string& what) {
  ++m_result.lossCount;
  if (m_result.losses.size() < kLossesPrinted) {
    m_result.losses.push_back(what);
  }
}

void Soak::HearFailure(const FailedRequest& request) {
  if (request.text.find("org.example.Refused") != std::string::npos) {
    ++m_refused;
  } else if (!m_outages.Explain(request.begin, request.end)) {
    Lose("failed although the service was there: " + request.text);
  }
}

void Soak::CheckGrowth(const std::vector<Usage>& usages) {
  for (std::size_t i = 0; i < usages.size(); ++i) {
    const std::string whose = "application " + std::to_string(i + 1) + " ";
    if (usages[i].atEnd.files > usages[i].atStart.files) {
      Lose(whose + "has more open descriptors at its end: " + std::to_string(usages[i].atEnd.files) +
           " after " + std::to_string(usages[i].atStart.files));
    }
    if (kMemoryCounts && usages[i].atEnd.kilobytes > usages[i].atStart.kilobytes + kKilobytesOfSlack) {
      Lose(whose + "has more memory in use at its end: " + std::to_string(usages[i].atEnd.kilobytes) +
           " KiB after " + std::to_string(usages[i].atStart.kilobytes));
    }
  }
}

}  // namespace btsoak
