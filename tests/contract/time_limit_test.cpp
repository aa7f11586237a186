// How long a request waits for the service.

#include <string>
#include <vector>

#include <dlfcn.h>
#include <gmock/gmock.h>

#include "contract/AdapterCalls.h"
#include "ipc/BtClientIpcAdapter.h"
#include "support/BusDaemon.h"
#include "support/LogCapture.h"
#include "support/Recorder.h"

namespace {

/// How long a call that gets no answer really waits in these tests.
constexpr guint kInsteadMilliseconds = 50;

/// The time limits, in milliseconds, that were set on the thread that has this.
thread_local std::vector<guint>* t_limits = nullptr;

}  // namespace

// Takes the place of GLib's function for GIO, which measures the time of a call with it.
extern "C" __attribute__((visibility("default"))) GSource* g_timeout_source_new(guint milliseconds) {
  static const auto real = reinterpret_cast<decltype(&g_timeout_source_new)>(dlsym(RTLD_NEXT, __func__));
  if (t_limits == nullptr) {
    return real(milliseconds);
  }
  t_limits->push_back(milliseconds);
  return real(kInsteadMilliseconds);
}

namespace bttest {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr guint k25Seconds = 25000;

class TimeLimit : public testing::Test {
 protected:
  TimeLimit() { isConnected = adapter.InitDBusConnect(); }
  ~TimeLimit() override { t_limits = nullptr; }

  BusDaemon bus;
  Recorder service;
  BtClientIpcAdapter adapter;
  bool isConnected;
  std::vector<guint> limits;
};

TEST_F(TimeLimit, OfEveryRequestIs25Seconds) {
  ASSERT_TRUE(isConnected);
  for (const auto& [name, call] : AdapterCalls()) {
    const MethodDescription& method = BluetoothInterface().Method(name);
    const OwnedVariant arguments(MakeTuple(method.in, 0));
    Out out(method.out);
    // A service that never answers is as good as one that does.
    service.Hang(name);
    limits.clear();
    t_limits = &limits;
    call(adapter, In(arguments.get()), out);
    t_limits = nullptr;
    EXPECT_THAT(limits, ElementsAre(k25Seconds)) << name;
  }
}

TEST_F(TimeLimit, EndsARequestWithZeroAndOneErrorLine) {
  ASSERT_TRUE(isConnected);
  service.SetReply("SetPower", g_variant_new("(i)", 1));
  service.Hang("SetPower");
  LogCapture log;
  t_limits = &limits;
  EXPECT_EQ(adapter.SetPower(1), 0);
  const std::vector<LogRecord> errors = log.OfLevel(100);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_THAT(
      errors[0].message,
      HasSubstr("com_zelk_linux_bluetooth_call_set_power_sync: Failed to call dbus method. Reason: "));
  EXPECT_THAT(errors[0].message, HasSubstr("Timeout was reached"));
}

}  // namespace
}  // namespace bttest
