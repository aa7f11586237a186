#ifndef QT_PAIRINGQUESTION_H
#define QT_PAIRINGQUESTION_H

#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <btasync/Service.h>

#include "Export.h"
#include "Operation.h"

namespace btqt {

/// A device wants to pair, and a person has to answer. It is there until the pairing has ended in one way or
/// another: Devices.question.
class BTASYNCQT_API PairingQuestion : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("Devices.question is one")
  Q_PROPERTY(QString address READ address CONSTANT)
  /// Empty if it is not known.
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(Kind kind READ kind CONSTANT)
  /// To show or to compare; may be empty.
  Q_PROPERTY(QString digits READ digits CONSTANT)
  /// Belongs to wireless projection.
  Q_PROPERTY(bool forProjection READ isForProjection CONSTANT)

 public:
  /// As btasync::PairRequestState.
  enum Kind {
    Confirmation,    ///< compare the digits on both devices
    PasskeyEntry,    ///< type the digits that the other device shows
    PasskeyDisplay,  ///< show the digits; the other device types them
    PinCode,         ///< type a PIN, the same on both
    JustWorks,       ///< yes or no, without digits
  };
  Q_ENUM(Kind)

  PairingQuestion(btasync::Service& service, btasync::PairRequested question, QString name, QObject* parent);

  QString address() const;
  QString name() const { return m_name; }
  Kind kind() const { return static_cast<Kind>(m_question.question); }
  QString digits() const;
  bool isForProjection() const { return m_question.forProjection; }

  Q_INVOKABLE void accept(btqt::Operation* operation = nullptr);
  /// With what was typed, decimal digits: for PasskeyEntry and PinCode.
  Q_INVOKABLE void acceptWith(const QString& digits, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void reject(btqt::Operation* operation = nullptr);

 private:
  btasync::Service& m_service;
  btasync::PairRequested m_question;
  QString m_name;
};

}  // namespace btqt

#endif
