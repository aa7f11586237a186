#ifndef QT_CALLS_H
#define QT_CALLS_H

#include <QString>
#include <QVariant>

#include "RowsModel.h"
#include "Subject.h"

namespace btqt {

/// The calls, and what can be done with them.
class BTASYNCQT_API Calls : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.calls is one")
  /// The calls, at most two, the active one first, by callId. Roles: callId, number, name (empty if it is not
  /// known), state (State), seconds since it was answered, conference (part of one), outgoing, phone (the
  /// address of the phone that it goes over).
  Q_PROPERTY(btqt::RowsModel* model READ model CONSTANT)
  /// The number of calls. It may be above that of the rows.
  Q_PROPERTY(int count READ count NOTIFY countChanged)
  /// The call that rings or waits, with the values of its row; null if none does.
  Q_PROPERTY(QVariant incoming READ incoming NOTIFY incomingChanged)
  /// The sound is on the phone, not on the head unit.
  Q_PROPERTY(bool privacy READ isPrivate NOTIFY privacyChanged)
  Q_PROPERTY(Codec codec READ codec NOTIFY codecChanged)
  /// The active call can be held and the other one resumed or accepted.
  Q_PROPERTY(bool canSwap READ canSwap NOTIFY possibleChanged)
  /// The held call can be joined to the conversation.
  Q_PROPERTY(bool canMerge READ canMerge NOTIFY possibleChanged)

 public:
  /// As btasync::CallStatus.
  enum State { Idle, Active, Held, Dialing, Alerting, Incoming, Waiting, ResponseHeld };
  Q_ENUM(State)
  /// As btasync::CodecMode.
  enum Codec { NoCodec, Cvsd, Msbc, Lc3Swb };
  Q_ENUM(Codec)

  explicit Calls(BtService& service);

  RowsModel* model() const;
  int count() const { return m_count; }
  QVariant incoming() const { return m_incoming; }
  bool isPrivate() const { return m_isPrivate; }
  Codec codec() const { return m_codec; }
  bool canSwap() const { return m_canSwap; }
  bool canMerge() const { return m_canMerge; }

  Q_INVOKABLE void dial(const QString& number, btqt::Operation* operation = nullptr);
  /// Dials the last number again.
  Q_INVOKABLE void redial(btqt::Operation* operation = nullptr);
  /// Accepts the call that rings or waits.
  Q_INVOKABLE void accept(btqt::Operation* operation = nullptr);
  /// Rejects the call that rings or waits.
  Q_INVOKABLE void reject(btqt::Operation* operation = nullptr);
  /// Ends the call that is being dialed, or else the active one.
  Q_INVOKABLE void hangUp(btqt::Operation* operation = nullptr);
  /// Holds the active call and resumes or accepts the other one.
  Q_INVOKABLE void swap(btqt::Operation* operation = nullptr);
  /// Joins the held call to the conversation.
  Q_INVOKABLE void merge(btqt::Operation* operation = nullptr);
  /// Sends one tone: 0-9, *, #, A-D. Anything else fails as InvalidArgument.
  Q_INVOKABLE void sendTone(const QString& tone, btqt::Operation* operation = nullptr);
  /// Moves the sound to the phone, or to the head unit. (The interface cannot mute the microphone.)
  Q_INVOKABLE void setPrivacy(bool on, btqt::Operation* operation = nullptr);

 Q_SIGNALS:
  void countChanged();
  void incomingChanged();
  void privacyChanged();
  void codecChanged();
  void possibleChanged();

 private:
  void show(const btasync::State& state, unsigned parts) override;
  QVariant incomingOf(const btasync::CallsState& calls) const;

  KeyedModel<btasync::CallEntry>* m_model;
  int m_count = 0;
  QVariant m_incoming;
  bool m_isPrivate = false;
  Codec m_codec = NoCodec;
  bool m_canSwap = false;
  bool m_canMerge = false;
};

}  // namespace btqt

#endif
