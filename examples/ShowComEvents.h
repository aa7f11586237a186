#ifndef EXAMPLES_SHOWCOMEVENTS_H
#define EXAMPLES_SHOWCOMEVENTS_H

#include <bluetooth/IMWPBtComListener.h>

#include "Show.h"

/// Shows every event of power, pairing, connections and settings.
class ShowComEvents : public IMWPBtComListener {
 private:
  void OnOpenBtStatusChanged(MWPBtType::PowerStatus status) override {
    ShowEvent("OnOpenBtStatusChanged", status);
  }
  void OnBtProfileEnableStatusChanged(int enabled) override {
    ShowEvent("OnBtProfileEnableStatusChanged", enabled);
  }
  void OnPairStatusChanged(MWPBtType::PairStatus status, MWPBtType::PairFailedReson reason,
                           const std::string& address) override {
    ShowEvent("OnPairStatusChanged", status, reason, address);
  }
  void OnAnswerPairRequest(const std::string& address, const std::string& pinCode, int androidAutoRequest,
                           MWPBtType::PairRequestState state) override {
    ShowEvent("OnAnswerPairRequest", address, pinCode, androidAutoRequest, state);
  }
  void OnBtCapabilityChanged(MWPBtType::Capability capability, int value) override {
    ShowEvent("OnBtCapabilityChanged", capability, value);
  }
  void OnBtAttributeChanged(MWPBtType::Attribute attribute, const std::string& value) override {
    ShowEvent("OnBtAttributeChanged", attribute, value);
  }
  void OnScanStatusChanged(MWPBtType::ScanStatus status) override {
    ShowEvent("OnScanStatusChanged", status);
  }
  void OnDeletePairStatusChanged(int status) override { ShowEvent("OnDeletePairStatusChanged", status); }
  void OnOperatorNameChanged(const std::string& name) override { ShowEvent("OnOperatorNameChanged", name); }
  void OnConnectStatusChanged(const std::string& address, MWPBtType::ProfileId profile,
                              MWPBtType::ConnStatus status) override {
    ShowEvent("OnConnectStatusChanged", address, profile, status);
  }
  void OnSupportProfileChanged(const std::string& address, MWPBtType::ProfileId profile) override {
    ShowEvent("OnSupportProfileChanged", address, profile);
  }
  void OnWirelessEnableRequest(const std::string& address, const std::string& name,
                               MWPBtType::SupportType type) override {
    ShowEvent("OnWirelessEnableRequest", address, name, type);
  }
  void OnAndroidAutoPairingResponse(MWPBtType::HUStatus status) override {
    ShowEvent("OnAndroidAutoPairingResponse", status);
  }
  void OnSetDeviceOOBLinkKeyChanged(const std::string& address, int success) override {
    ShowEvent("OnSetDeviceOOBLinkKeyChanged", address, success);
  }
};

#endif
