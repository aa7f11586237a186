// libbtasync in a program whose loop is a poll() of its own, without GLib's and without Qt's: the adapter is
// switched as somebody types. To be tried: script/demo poll_loop, and then the lines on, off and quit.
#include <btasync/Outcome.h>
#include <btasync/PollLoop.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace btasync;

class Switch {
 public:
  Switch() {
    m_service.OnAvailability(m_scope, [](Availability now) { std::printf("service %s\n", ToText(now)); });
    m_service.On<PowerChanged>(m_scope, [](const PowerChanged& event) {
      static constexpr const char* kWords[] = {"off", "on", "turning off", "turning on"};
      std::printf("power %s\n", event.status <= BT_POWER_TURNING_ON ? kWords[event.status] : "unknown");
    });
  }

  /// False if something that was typed could not be done.
  bool Run() {
    while (!m_isOver) {
      Turn();
    }
    return !m_hasFailed;
  }

 private:
  /// One turn of the loop: what is waited for, the waiting, and what is due then.
  void Turn() {
    // The program's own comes first. poll() passes over what is negative: nothing is read during a request.
    m_fds.assign({{m_request.IsUnderWay() ? -1 : STDIN_FILENO, POLLIN, 0}});
    int timeoutMs = -1;
    m_loop.Prepare(m_fds, timeoutMs);  // adds what the library waits for
    if (poll(m_fds.data(), m_fds.size(), timeoutMs) < 0) {
      return;  // interrupted by a signal: once more
    }
    m_loop.Dispatch(m_fds);  // runs completions and events
    if (m_fds[0].revents != 0) {
      Read();
    }
    DoWhatWasTyped();
  }

  void Read() {
    char bytes[256];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    m_typed.append(count > 0 ? std::string(bytes, count) : "quit\n");
  }

  /// One line after the other: the next one when the request of the one before has ended.
  void DoWhatWasTyped() {
    for (std::size_t end = 0; !m_request.IsUnderWay() && (end = m_typed.find('\n')) != std::string::npos;) {
      const std::string line = m_typed.substr(0, end);
      m_typed.erase(0, end + 1);
      Do(line);
    }
  }

  void Do(const std::string& line) {
    if (line == "quit") {
      m_isOver = true;
    } else if (line == "on" || line == "off") {
      m_request = SwitchPower(m_service, line == "on")
                      .Within(std::chrono::seconds(20))
                      .Then(m_scope, [this, line](const Answer<PowerChanged>& answer) {
                        m_hasFailed = m_hasFailed || !answer;
                        std::printf("%s: %s\n", line.c_str(),
                                    answer             ? "done"
                                    : answer.Refused() ? "refused"
                                                       : ToText(answer.Why().reason));
                      });
    } else {
      std::printf("on, off or quit?\n");
    }
  }

  PollLoop m_loop;
  Service m_service{m_loop.Context()};
  std::vector<pollfd> m_fds;
  std::string m_typed;
  Call m_request;
  bool m_isOver = false;
  bool m_hasFailed = false;
  Scope m_scope;  // the last member: nothing runs any more once it is gone
};

}  // namespace

int main() {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  return Switch().Run() ? 0 : 1;
}
