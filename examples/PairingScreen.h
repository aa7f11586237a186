#ifndef EXAMPLES_PAIRINGSCREEN_H
#define EXAMPLES_PAIRINGSCREEN_H

#include <btasync/Outcome.h>
#include <btasync/Service.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A screen that searches for devices, pairs with one, shows what that asks, and connects it. It is only what
/// is drawn and what the user does: any toolkit can draw it, and a test can use it with a FakeService.
class PairingScreen {
 public:
  struct Device {
    btasync::Address address;
    std::string name;
  };

  /// changed: something is to be drawn anew. It must not destroy the screen.
  PairingScreen(btasync::Service& service, std::function<void()> changed)
      : m_service(service), m_changed(std::move(changed)) {
    m_service.OnAvailability(m_scope, [this](btasync::Availability now) { OnAvailability(now); });
    m_service.On<btasync::PowerChanged>(m_scope, [this](const btasync::PowerChanged& event) {
      if (m_waitsForPower) {
        SearchWith(event.status);
      }
    });
    m_service.On<btasync::DeviceFound>(m_scope, [this](const btasync::DeviceFound& found) { Add(found); });
    m_service.On<btasync::PairRequested>(m_scope, [this](const btasync::PairRequested& question) {
      m_question = question;
      m_changed();
    });
    m_service.On<btasync::PairChanged>(m_scope, [this](const btasync::PairChanged& event) {
      if (m_question && m_question->address == event.address && event.status != btasync::BT_PAIR_PAIRING) {
        m_question.reset();  // it is answered, here or there, or nobody waits for the answer any more
        m_changed();
      }
    });
  }

  // ----- What is drawn

  const std::string& Status() const { return m_status; }
  const std::vector<Device>& Found() const { return m_found; }
  /// What the device asks, with the digits to compare or to show; none if it asks nothing.
  const std::optional<btasync::PairRequested>& Question() const { return m_question; }
  /// A pairing or a connection is under way: nothing else may be begun.
  bool IsBusy() const { return m_isBusy; }

  // ----- What the user does

  /// Begins to search, and switches the adapter on for it.
  void Search() {
    m_found.clear();
    Show("searching");
    m_service.GetPowerStatus().Then(m_scope, [this](const btasync::Answer<btasync::PowerStatus>& power) {
      SearchWith(power.ValueOr(btasync::BT_POWER_OFF));
    });
  }

  /// Pairs with a device, and connects it.
  void Pair(const btasync::Address& address) {
    m_isBusy = true;
    Show("pairing");
    btasync::PairDevice(m_service, address)
        .Then(m_scope, [this, address](const btasync::Answer<btasync::PairChanged>& paired) {
          if (paired) {
            Connect(address);
          } else {
            End(paired.Refused() ? WordsFor(paired.RefusedBy()) : WordsFor(paired.Why()));
          }
        });
  }

  /// Answers what the device asks. digits: what the user has typed, if that is asked for.
  void AnswerQuestion(bool yes, const std::string& digits = "") {
    if (!m_question) {
      return;
    }
    const btasync::PairRequested question = *std::exchange(m_question, std::nullopt);
    if (yes) {
      const btasync::PinCode pin(digits.empty() ? question.digits : digits);
      m_service.AnswerPair(question.address, question.question, pin).Send();
    } else {
      m_service.RejectPair(question.address, question.question).Send();
    }
    m_changed();  // the end of the pairing is reported to Pair()
  }

 private:
  void SearchWith(btasync::PowerStatus power) {
    // One that is on its way is not switched: that would be refused.
    m_waitsForPower = power == btasync::BT_POWER_TURNING_ON || power == btasync::BT_POWER_TURNING_OFF;
    if (power == btasync::BT_POWER_ON) {
      Scan();
    } else if (!m_waitsForPower) {
      btasync::SwitchPower(m_service, true)
          .Then(m_scope, [this](const btasync::Answer<btasync::PowerChanged>& switched) {
            switched ? Scan() : Show("Bluetooth cannot be switched on");
          });
    }
  }

  void Scan() {
    m_service.SetScanAction(true).Then(m_scope, [this](const btasync::Answer<>& accepted) {
      if (accepted.Failed()) {
        Show(WordsFor(accepted.Why()));
      }  // refused: a search is running already
    });
  }

  void Connect(const btasync::Address& address) {
    Show("connecting");
    btasync::ConnectDevice(m_service, address)
        .Then(m_scope, [this](const btasync::Answer<btasync::ConnectionChanged>& connected) {
          End(connected ? "connected" : "paired, but not connected");
        });
  }

  void Add(const btasync::DeviceFound& found) {
    const auto known = std::find_if(m_found.begin(), m_found.end(),
                                    [&](const Device& device) { return device.address == found.address; });
    if (known == m_found.end()) {
      m_found.push_back({found.address, found.name});
    } else {
      known->name = found.name;  // it may be known only now
    }
    m_changed();
  }

  void OnAvailability(btasync::Availability now) {
    if (now == btasync::Availability::Present) {
      Show("ready");
    } else {
      m_found.clear();
      m_question.reset();
      m_waitsForPower = false;
      Show("Bluetooth is not there yet");
    }
  }

  /// by: the event that reported it; null if the service did not even begin.
  static std::string WordsFor(const btasync::PairChanged* by) {
    switch (by != nullptr ? by->reason : btasync::BT_PAIR_REASON_NONE) {
      case btasync::BT_PAIR_REASON_AUTHENTICATION:
        return "the PIN is wrong";
      case btasync::BT_PAIR_REASON_REJECTED_REMOTE:
        return "it was refused on the device";
      case btasync::BT_PAIR_REASON_TIMEOUT:
      case btasync::BT_PAIR_REASON_UNREACHABLE:
        return "the device does not answer";
      default:
        return "the device cannot be paired";
    }
  }

  static std::string WordsFor(const btasync::Failure& failure) {
    return failure.reason == btasync::Reason::TimedOut ? "it takes too long: try again"
                                                       : "Bluetooth has failed: try again";
  }

  void End(const std::string& status) {
    m_isBusy = false;
    m_question.reset();
    Show(status);
  }

  void Show(const std::string& status) {
    m_status = status;
    m_changed();
  }

  btasync::Service& m_service;
  const std::function<void()> m_changed;
  std::string m_status;
  std::vector<Device> m_found;
  std::optional<btasync::PairRequested> m_question;
  bool m_isBusy = false;
  bool m_waitsForPower = false;  // to search
  btasync::Scope m_scope;        // the last member: nothing runs any more once the screen goes
};

#endif
