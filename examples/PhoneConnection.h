#ifndef EXAMPLES_PHONECONNECTION_H
#define EXAMPLES_PHONECONNECTION_H

#include <bluetooth/IMWPBtComListener.h>
#include <bluetooth/MWPBtCom.h>

#include <functional>
#include <string>
#include <utility>

#include "Show.h"

/// Switches on, pairs a phone and connects it, whatever of that is still to be done. Each step is taken when
/// the event arrives that reports the one before.
class PhoneConnection : public IMWPBtComListener {
 public:
  /// onConnected is called whenever the profile of the phone is connected, onFailed when the phone cannot be
  /// paired.
  PhoneConnection(std::string address, MWPBtType::ProfileId profile, std::function<void()> onConnected,
                  std::function<void()> onFailed)
      : m_address(std::move(address)),
        m_profile(profile),
        m_onConnected(std::move(onConnected)),
        m_onFailed(std::move(onFailed)) {}

  /// To be called once the library is started.
  void Begin() { m_bluetooth.GetBluetoothServiceStatus(); }

 private:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus status) override {
    ShowEvent("OnOpenBtStatusChanged", status);
    if (status == MWPBtType::BT_POWER_OFF) {
      m_bluetooth.SetPower(1);
    } else if (status == MWPBtType::BT_POWER_ON && m_bluetooth.Pair(m_address, "") == 0) {
      Connect();  // it is paired already
    }
  }

  void OnAnswerPairRequest(const std::string& address, const std::string& pinCode, int,
                           MWPBtType::PairRequestState state) override {
    ShowEvent("OnAnswerPairRequest", address, pinCode, state);
    m_bluetooth.AnswerPair(pinCode, address, state);
  }

  void OnPairStatusChanged(MWPBtType::PairStatus status, MWPBtType::PairFailedReson reason,
                           const std::string& address) override {
    ShowEvent("OnPairStatusChanged", status, reason, address);
    if (status == MWPBtType::BT_PAIR_PAIRED) {
      Connect();
    } else if (status == MWPBtType::BT_PAIR_FAILED) {
      m_onFailed();
    }
  }

  void OnConnectStatusChanged(const std::string& address, MWPBtType::ProfileId profile,
                              MWPBtType::ConnStatus status) override {
    ShowEvent("OnConnectStatusChanged", address, profile, status);
    if (address == m_address && profile == m_profile && status == MWPBtType::BT_CONN_CONNECTED) {
      m_onConnected();
    }
  }

  void Connect() { m_bluetooth.Connect(m_address, MWPBtType::BT_PROFILE_HFP_A2DP, 0); }

  const std::string m_address;
  const MWPBtType::ProfileId m_profile;
  const std::function<void()> m_onConnected;
  const std::function<void()> m_onFailed;
  MWPBtCom m_bluetooth;
};

#endif
