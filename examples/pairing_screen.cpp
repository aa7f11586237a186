// A pairing screen with the library that never blocks: PairingScreen.h is the screen, this draws it as lines
// of text, and does what a user would.
//
// Usage: pairing_screen ADDRESS
#include <glib.h>

#include <cstdio>
#include <memory>

#include "PairingScreen.h"

namespace {

using namespace btasync;

constexpr unsigned kSeconds = 90;  // no step may take longer

class Program {
 public:
  explicit Program(const Address& address)
      : m_address(address), m_screen(m_service, [this] { Draw(); }), m_giveUp(m_service) {
    m_giveUp.Start(std::chrono::seconds(kSeconds), [this] { End("giving up", 1); });
    m_service.GetPowerStatus().Then(m_scope, [this](const Answer<PowerStatus>& power) {
      if (power.Failed()) {
        End(std::string("power: ") + ToText(power.Why().reason), 1);
        return;
      }
      m_screen.Search();  // which switches it on
    });
  }

  int Run() {
    g_main_loop_run(m_loop.get());
    return m_status;
  }

 private:
  void Draw() {
    if (m_screen.Status() != m_drawn) {
      m_drawn = m_screen.Status();
      std::printf("%s\n", m_drawn.c_str());
    }
    for (; m_drawnDevices < m_screen.Found().size(); ++m_drawnDevices) {
      const PairingScreen::Device& device = m_screen.Found()[m_drawnDevices];
      std::printf("found %s %s\n", device.address.ToText().c_str(), device.name.c_str());
      if (device.address == m_address && !m_screen.IsBusy()) {
        m_next.Start(std::chrono::milliseconds(0), [this] { Tap(); });
      }
    }
    if (m_screen.Question() && !m_next.IsRunning()) {
      std::printf("does the device show %s?\n", m_screen.Question()->digits.c_str());
      m_next.Start(std::chrono::milliseconds(0), [this] { m_screen.AnswerQuestion(true); });
    }
    if (m_hasBegun && !m_screen.IsBusy()) {
      End("done", m_drawn == "connected" ? 0 : 1);
    }
    m_hasBegun = m_screen.IsBusy();
  }

  /// The user taps on the device. Pairing is to be shown, so it must not be paired any more.
  void Tap() {
    DeleteDevice(m_service, m_address).Then(m_scope, [this](const Answer<PairedDevicesDeleted>&) {
      m_screen.Pair(m_address);
    });  // refused: it is not paired
  }

  void End(const std::string& words, int status) {
    std::printf("%s\n", words.c_str());
    m_status = status;
    g_main_loop_quit(m_loop.get());
  }

  const std::unique_ptr<GMainLoop, decltype(&g_main_loop_unref)> m_loop{g_main_loop_new(nullptr, FALSE),
                                                                        g_main_loop_unref};
  const Address m_address;
  int m_status = 1;
  std::string m_drawn;
  std::size_t m_drawnDevices = 0;
  bool m_hasBegun = false;
  Service m_service;
  Timer m_next{m_service};
  PairingScreen m_screen;
  Timer m_giveUp;
  Scope m_scope;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: pairing_screen ADDRESS\n");
    return 2;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  return Program(Address(argv[1])).Run();
}
