// More happens in the world than the machine, or the bus, can keep up with.

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"
#include "support/MainLoop.h"
#include "support/TemporaryDirectory.h"
#include "tests/drive/ProcessUsage.h"
#include "tests/service/running_service.h"

namespace btservice {
namespace {

using Clock = std::chrono::steady_clock;

/// Kilobytes. The queue used to take hundreds of megabytes in this time.
#ifdef __SANITIZE_ADDRESS__
constexpr long kMostGrowth = 1000000;  // freed memory stays in quarantine: 360 MB were seen
#else
constexpr long kMostGrowth = 20000;
#endif

/// Kilobytes. What waits for a bus that takes nothing: a thousand messages and a batch of calls.
constexpr long kMostUnsentKilobytes = kMostGrowth + 80000;

constexpr const char* kOneBar = "OnBtSignalChanged (byte 0x01,)";
constexpr const char* kTwoBars = "OnBtSignalChanged (byte 0x02,)";

/// A world whose phone changes its signal strength twice in each millisecond.
std::string WorldWithoutPause(const bttest::TemporaryDirectory& directory) {
  std::string path = directory.Path() / "without-pause.json";
  std::ofstream(path) << R"({
    "format": 1,
    "devices": [{"address": "00:1A:7D:DA:71:13", "name": "Phone", "profiles": ["hfp"], "paired": true,
                 "phone": {}}],
    "timeline": [
      {"atMs": 1000, "do": "connect", "device": "00:1A:7D:DA:71:13", "profile": "hfp"},
      {"atMs": 5000, "everyMs": 1, "do": "signal", "device": "00:1A:7D:DA:71:13", "bars": 1},
      {"atMs": 5000, "everyMs": 1, "do": "signal", "device": "00:1A:7D:DA:71:13", "bars": 2}
    ]})";
  return path;
}

/// Asks for the power status again and again, for so long; the test ends if an answer does not come.
void AskFor(RunningService& service, std::chrono::seconds time) {
  for (const auto end = Clock::now() + time; Clock::now() < end;) {
    service.Ask("GetPowerStatus");
    // Once: on a slow machine, signals may come as fast as they are taken.
    g_main_context_iteration(nullptr, FALSE);
  }
}

void ExpectAliveAndSmall(const std::vector<std::string>& options) {
  RunningService service(options);
  const long before = ProcessUsage(service.Process().Pid()).kilobytes;
  // The service used to be deaf after two and a half seconds.
  AskFor(service, std::chrono::seconds(4));
  EXPECT_LT(ProcessUsage(service.Process().Pid()).kilobytes, before + kMostGrowth);
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
}

TEST(OverloadTest, TheHighestSpeedLeavesTimeForRequestsAndTheEnd) {
  ExpectAliveAndSmall({"--no-state", "--world", "two-phones", "--speed", "100000"});
}

TEST(OverloadTest, AWorldWithoutPauseLeavesTimeForRequestsAndTheEnd) {
  const bttest::TemporaryDirectory directory;
  ExpectAliveAndSmall({"--no-state", "--world", WorldWithoutPause(directory), "--speed", "200"});
}

/// The bus takes nothing more, if it has taken nothing for so long. Sanitizers make the service slow.
#ifdef __SANITIZE_ADDRESS__
constexpr std::chrono::seconds kPatience{8};
#else
constexpr std::chrono::seconds kPatience{3};
#endif

/// A client of the bus that sends calls and never reads an answer.
class DeafClient {
 public:
  explicit DeafClient(const std::string& address) : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    address.copy(name.sun_path, sizeof(name.sun_path) - 1, std::strlen("unix:path="));
    if (connect(m_socket, reinterpret_cast<const sockaddr*>(&name), sizeof(name)) != 0) {
      throw std::runtime_error("there is no bus");
    }
    std::string uid;  // in hexadecimal, each of its digits
    for (const char digit : std::to_string(getuid())) {
      uid += std::string("3") + digit;
    }
    Write(std::string(1, '\0') + "AUTH EXTERNAL " + uid + "\r\n");
    std::array<char, 100> answer{};
    if (read(m_socket, answer.data(), answer.size()) < 2 || answer[0] != 'O' || answer[1] != 'K') {
      throw std::runtime_error("the bus does not want us");
    }
    std::string hello = Bytes("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "Hello", nullptr);
    SetSerial(hello, ++m_serial);
    Write("BEGIN\r\n" + hello);
  }
  ~DeafClient() { close(m_socket); }
  DeafClient(const DeafClient&) = delete;
  DeafClient& operator=(const DeafClient&) = delete;

  /// Sends a call of the service as often as the bus takes it, but no more than so often. It has taken all
  /// that it takes when it takes nothing for a while. Returns how often.
  int Flood(const char* path, const char* interface, const char* method, GVariant* arguments, int most,
            const std::function<void()>& afterEach) {
    std::string call = Bytes(kServiceName, path, interface, method, arguments);
    SetSerial(call, ++m_serial);
    int count = 0;
    std::size_t sent = 0;  // of this call
    while (count < most && bttest::WaitUntil([&] { return SendSome(call, sent); }, kPatience)) {
      if (sent == call.size()) {
        ++count;
        sent = 0;
        SetSerial(call, ++m_serial);
        afterEach();
      }
    }
    return count;
  }

 private:
  void Write(const std::string& bytes) const {
    if (write(m_socket, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
      throw std::runtime_error("the bus does not listen");
    }
  }

  bool SendSome(const std::string& bytes, std::size_t& sent) const {
    const ssize_t part =
        send(m_socket, bytes.data() + sent, bytes.size() - sent, MSG_DONTWAIT | MSG_NOSIGNAL);
    sent += part > 0 ? static_cast<std::size_t>(part) : 0;
    return part > 0;
  }

  /// The bus refuses a call whose serial is that of one that has no answer yet.
  static void SetSerial(std::string& call, guint32 serial) {
    constexpr std::size_t kPlaceOfTheSerial = 8;
    call.replace(kPlaceOfTheSerial, sizeof(serial), reinterpret_cast<const char*>(&serial), sizeof(serial));
  }

  /// A call as it is sent.
  static std::string Bytes(const char* name, const char* path, const char* interface, const char* method,
                           GVariant* arguments) {
    const OwnedObject<GDBusMessage> message(g_dbus_message_new_method_call(name, path, interface, method));
    g_dbus_message_set_serial(message.get(), 1);  // until it gets its own
    if (arguments != nullptr) {
      g_dbus_message_set_body(message.get(), arguments);
    }
    gsize size = 0;
    OwnedError error;
    const OwnedMemory<guchar> blob(
        g_dbus_message_to_blob(message.get(), &size, G_DBUS_CAPABILITY_FLAGS_NONE, error.Out()));
    bttest::ThrowIfSet(error, "writing a call");
    return std::string(reinterpret_cast<const char*>(blob.get()), size);
  }

  int m_socket;
  guint32 m_serial = 0;
};

constexpr const char* kIntrospectable = "org.freedesktop.DBus.Introspectable";

/// The bus, which has to keep the answers, soon reads nothing more from the service; but it goes on bringing
/// calls. An answer is 60 KB here.
TEST(OverloadTest, AClientThatReadsNoAnswerTakesNoMemory) {
  RunningService service({"--no-state", "--world", "empty"}, RunningService::Begin::NOW, 200000);
  const long before = ProcessUsage(service.Process().Pid()).kilobytes;
  {
    DeafClient client(service.Bus().Address());
    constexpr int kMostCalls = 20000;
    EXPECT_LT(client.Flood(kServicePath, kIntrospectable, "Introspect", nullptr, kMostCalls, [] {}),
              kMostCalls);
    EXPECT_LT(ProcessUsage(service.Process().Pid()).kilobytes, before + kMostUnsentKilobytes);
  }
  EXPECT_EQ(service.Ask("GetPowerStatus"), "(byte 0x01,)") << "everybody else is served again";
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
}

/// Calls that take long keep the service busy, and large ones follow. The bus keeps 20 MB of them.
TEST(OverloadTest, CallsThatComeTooFastTakeNoMemory) {
  RunningService service({"--no-state", "--world", "empty"}, RunningService::Begin::NOW, 20000000);
  const auto kilobytes = [&] { return ProcessUsage(service.Process().Pid()).kilobytes; };
  const long before = kilobytes();
  long most = 0;
  DeafClient client(service.Bus().Address());
  const auto flood = [&](const std::string& device, int calls) {
    client.Flood(kControlPath, bttest::InterfaceOfControl("AddDevice").name.c_str(), "AddDevice",
                 g_variant_new("(s)", device.c_str()), calls, [&] { most = std::max(most, kilobytes()); });
  };
  flood(R"({"address": "00:00:00:00:00:01", "name": "A", "phoneBook": {"generate": 99999}})", 40);
  constexpr int kCalls = 40;
  constexpr long kKilobytesOfACall = 8L * 1024;
  flood(std::string(kKilobytesOfACall * 1024, 'x'), kCalls);
  EXPECT_LT(most, before + kMostUnsentKilobytes + kCalls / 4 * kKilobytesOfACall);
}

/// Here the machine can keep up with the world, until nothing that happens there can be sent.
TEST(OverloadTest, ABusThatStandsStillTakesNoMemoryAndLosesNothing) {
  const bttest::TemporaryDirectory directory;
  RunningService service({"--no-state", "--world", WorldWithoutPause(directory), "--speed", "5"});
  ASSERT_TRUE(service.WaitFor(kTwoBars));
  const std::size_t first = service.Signals().size() - 1;
  const long before = ProcessUsage(service.Process().Pid()).kilobytes;
  service.Bus().Signal(SIGSTOP);
  EXPECT_TRUE(bttest::WaitUntil([&] {
    return service.Process().Errors().find("the simulated time falls behind") != std::string::npos;
  }));
  EXPECT_LT(ProcessUsage(service.Process().Pid()).kilobytes, before + kMostUnsentKilobytes);
  service.Bus().Signal(SIGCONT);

  constexpr std::size_t kMany = 5000;  // more than the sockets and the service hold together
  EXPECT_TRUE(bttest::RunUntil([&] { return service.Signals().size() > first + kMany; }));
  for (std::size_t i = first + 1; i < service.Signals().size(); ++i) {
    ASSERT_EQ(service.Signals()[i], service.Signals()[i - 1] == kTwoBars ? kOneBar : kTwoBars) << i;
  }
}

TEST(OverloadTest, TheServiceCanBeEndedWhileTheBusStandsStill) {
  RunningService service({"--no-state", "--world", "two-phones", "--speed", "1000"});
  ASSERT_TRUE(service.WaitFor("OnOpenBtStatusChanged (byte 0x01,)"));
  service.Bus().Signal(SIGSTOP);
  service.Process().Signal(SIGTERM);
  EXPECT_EQ(service.Process().Wait(), 0);
  EXPECT_EQ(service.Process().Errors().find("GLib"), std::string::npos) << service.Process().Errors();
  service.Bus().Signal(SIGCONT);
}

}  // namespace
}  // namespace btservice
