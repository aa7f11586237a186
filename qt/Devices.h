#ifndef QT_DEVICES_H
#define QT_DEVICES_H

#include <QString>
#include <memory>

#include "PairingQuestion.h"
#include "RowsModel.h"
#include "Subject.h"

namespace btqt {

/// The devices that are paired and those that a search has found; pairing, and connections.
class BTASYNCQT_API Devices : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.devices is one")
  /// The paired devices in the service's order, by address. Roles: address, name, support (Support),
  /// connected (any profile is), and a Connection for each profile: hfp, a2dp, avrcp, pbap, map, spp, hid,
  /// pan.
  Q_PROPERTY(btqt::RowsModel* paired READ paired CONSTANT)
  /// The devices that have been found since the last search began (Adapter.startScan) and are not paired, by
  /// address, in the order of the finds. Roles: address, name, support.
  Q_PROPERTY(btqt::RowsModel* found READ found CONSTANT)
  /// The address of the device that is being paired, or empty.
  Q_PROPERTY(QString pairing READ pairing NOTIFY pairingChanged)
  /// Why the last pairing failed; NoFailure if it did not, once another one begins, and when the service
  /// goes.
  Q_PROPERTY(PairFailure pairFailure READ pairFailure NOTIFY pairFailureChanged)
  /// A device wants to pair; null if none does, or no longer.
  Q_PROPERTY(btqt::PairingQuestion* question READ question NOTIFY questionChanged)

 public:
  /// As btasync::SupportType.
  enum Support { NoSupport, AndroidAuto, PhoneLink, SerialAccessory };
  Q_ENUM(Support)
  /// As btasync::ConnStatus.
  enum Connection { Disconnected, Connecting, Connected, Disconnecting, Failed, LinkLost, Unknown };
  Q_ENUM(Connection)
  /// As btasync::ProfileId.
  enum Profile { NoProfile, Hfp, A2dp, HfpAndA2dp, Avrcp, Pbap, Map, Spp, Hid, Pan, Gatt };
  Q_ENUM(Profile)
  /// As btasync::PairFailedReson.
  enum PairFailure {
    NoFailure,
    Authentication,  ///< wrong PIN or key
    RejectedThere,   ///< refused on the other device
    RejectedHere,    ///< refused here
    TimedOut,        ///< nobody answered the question
    Unreachable,     ///< the device did not answer
    ListFull,        ///< no room for a further paired device
    Busy,            ///< another pairing is under way
    UnknownFailure,  ///< the service gave no reason, or one that is not known
  };
  Q_ENUM(PairFailure)

  explicit Devices(BtService& service);
  ~Devices() override;

  RowsModel* paired() const;
  RowsModel* found() const;
  QString pairing() const { return m_pairing; }
  PairFailure pairFailure() const { return m_pairFailure; }
  PairingQuestion* question() const { return m_question; }

  /// The operation lasts until the pairing has ended: Accepted if the device is paired, Refused if that
  /// failed: pairFailure then has the reason, if not now, in the next turn of the loop, or NoFailure if the
  /// service did not even begin. While it lasts, a question may come.
  Q_INVOKABLE void pair(const QString& address, btqt::Operation* operation = nullptr);
  /// Connects calls and music. The operation lasts until both are connected, or Refused.
  Q_INVOKABLE void connect(const QString& address, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void connectProfile(const QString& address, btqt::Devices::Profile profile,
                                  btqt::Operation* operation = nullptr);
  /// Disconnects calls and music. The operation lasts until neither is connected.
  Q_INVOKABLE void disconnect(const QString& address, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void disconnectProfile(const QString& address, btqt::Devices::Profile profile,
                                     btqt::Operation* operation = nullptr);
  /// Forgets a paired device.
  Q_INVOKABLE void remove(const QString& address, btqt::Operation* operation = nullptr);
  /// Forgets all paired devices.
  Q_INVOKABLE void removeAll(btqt::Operation* operation = nullptr);
  /// Moves a paired device to a row, counted from 0. The row moves once the service has done it.
  Q_INVOKABLE void move(const QString& address, int row, btqt::Operation* operation = nullptr);

 Q_SIGNALS:
  void pairingChanged();
  void pairFailureChanged();
  void questionChanged();

 private:
  void show(const btasync::State& state, unsigned parts) override;
  void showPaired(const btasync::PairedState& paired);
  void showFound(const btasync::State& state);
  void showPairing(const btasync::State& state);
  QString nameOf(const btasync::Address& address) const;

  KeyedModel<btasync::PairedDevice>* m_paired;
  KeyedModel<btasync::DeviceFound>* m_found;
  QString m_pairing;
  PairFailure m_pairFailure = NoFailure;
  PairingQuestion* m_question = nullptr;
  btasync::PairRequested m_asked{};
  btasync::Scope m_scope;
};

}  // namespace btqt

#endif
