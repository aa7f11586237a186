// A call, from switching the adapter on to hanging up, as a coroutine of C++20: it reads from top to bottom
// and never blocks. To be tried with a phone that is paired already: script/demo --world one-phone dial 110
//
// Usage: dial NUMBER [ADDRESS]
#include <btasync/Coroutine.h>
#include <btasync/Outcome.h>
#include <glib.h>

#include <cstdio>
#include <memory>
#include <string>
#include <utility>

namespace {

using namespace btasync;
using namespace std::chrono_literals;

/// A call for one person, as a screen would have it. It ends the loop when it is over.
class PhoneCall {
 public:
  explicit PhoneCall(GMainLoop* loop) : m_loop(loop) {
    m_service.OnAvailability(m_scope, [this](Availability now) {
      if (now == Availability::Absent || now == Availability::NoBus) {
        End("there is no Bluetooth service", false);
      }
    });
    m_giveUp.Start(60s, [this] { End("giving up", false); });
  }

  void Begin(std::string number, Address phone) {
    Make(std::move(number), std::move(phone)).StartIn(m_scope);
  }
  bool HasWorked() const { return m_hasWorked; }

 private:
  /// It takes what it needs by value, since it outlives the call of this function. `this` is safe to use
  /// after each co_await: the coroutine goes with m_scope, which is a member.
  Job Make(std::string number, Address phone) {
    // It listens from here on. Made after an answer, it could miss the event.
    Next<PowerChanged> on(m_service, [](const PowerChanged& power) { return power.status == BT_POWER_ON; });
    const Answer<PowerStatus> power = co_await m_service.GetPowerStatus();
    if (power.ValueOr(BT_POWER_OFF) != BT_POWER_ON) {
      const Answer<> switched = co_await m_service.SetPower(true);
      if (switched.Failed()) {
        End("Bluetooth cannot be switched on", false);
        co_return;
      }  // refused: it is on its way already
      co_await on;
    }

    Show("connecting");
    if (!co_await ConnectDevice(m_service, phone, BT_PROFILE_HFP)) {
      End("the phone cannot be connected", false);
      co_return;
    }

    Next<CallStatusChanged> answered(m_service, [](const CallStatusChanged& call) {
      return call.status == BT_CALL_ACTIVE || call.status == BT_CALL_IDLE;
    });
    if (!co_await Dial(m_service, number)) {
      End("the phone does not dial", false);
      co_return;
    }
    Show("dialing " + number);
    const CallStatusChanged call = co_await answered;
    if (call.status == BT_CALL_IDLE) {
      End("nobody has answered", false);
      co_return;
    }

    Show("talking");
    co_await Sleep(m_service, 1s);
    const Answer<CallStatusChanged> over = co_await HangUp(m_service).Within(10s);
    End(over ? "hung up" : "the call does not end", over.Accepted());
  }

  static void Show(const std::string& text) { std::printf("%s\n", text.c_str()); }

  void End(const char* text, bool hasWorked) {
    Show(text);
    m_hasWorked = hasWorked;
    m_scope.Clear();  // whoever calls this: the coroutine does not go on where it waits
    g_main_loop_quit(m_loop);
  }

  GMainLoop* const m_loop;
  bool m_hasWorked = false;
  Service m_service;
  Timer m_giveUp{m_service};
  Scope m_scope;  // the last member: nothing runs any more once it is gone
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: dial NUMBER [ADDRESS]\n");
    return 2;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  const std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> loop{g_main_loop_new(nullptr, FALSE),
                                                                      g_main_loop_unref};
  PhoneCall call(loop.get());
  call.Begin(argv[1], Address(argc == 3 ? argv[2] : "00:1A:7D:DA:71:13"));
  g_main_loop_run(loop.get());
  return call.HasWorked() ? 0 : 1;
}
