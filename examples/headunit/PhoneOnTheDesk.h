#ifndef EXAMPLES_HEADUNIT_PHONEONTHEDESK_H
#define EXAMPLES_HEADUNIT_PHONEONTHEDESK_H

#include <functional>

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantList>

/// The phone that a person at the desk holds, and the network: the controls of the simulated service. All is
/// asked without waiting; what comes of it is seen on the screen of the car.
class PhoneOnTheDesk : public QObject {
  Q_OBJECT
  /// Of the phone that is connected, or else of the first that there is. A phone that has left the room is
  /// still the one that the person holds.
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(bool inRange READ isInRange WRITE setInRange NOTIFY changed)
  /// What the service suffers from since it has confirmed that: "slow", "hung", or nothing.
  Q_PROPERTY(QString fault READ fault NOTIFY faultChanged)

 public:
  using QObject::QObject;

  QString name() const { return m_name; }
  bool isInRange() const { return m_isInRange; }
  void setInRange(bool inRange);
  QString fault() const { return m_fault; }

  /// Looks which phone it is: no event of the controls reports that.
  Q_INVOKABLE void look();

  Q_INVOKABLE void ring(const QString& number);
  Q_INVOKABLE void answer();
  Q_INVOKABLE void hangUp();
  Q_INVOKABLE void play();
  Q_INVOKABLE void pause();
  Q_INVOKABLE void setBattery(int bars);
  Q_INVOKABLE void setSignal(int bars);
  /// Empty: it has lost the network.
  Q_INVOKABLE void setOperator(const QString& name);
  Q_INVOKABLE void setRoaming(bool roaming);
  /// The person at another device, which is being paired, accepts that.
  Q_INVOKABLE void acceptPairing(const QString& address);
  /// Somebody brings another device, whose address is anotherAddress().
  void bringAnother();
  static QString anotherAddress();

  // The service.
  /// Each answer takes two seconds.
  Q_INVOKABLE void slowDown();
  /// It takes requests and answers none.
  Q_INVOKABLE void hang();
  /// Undoes both.
  Q_INVOKABLE void recover();
  Q_INVOKABLE void die();

 Q_SIGNALS:
  void changed();
  void faultChanged();

 private:
  /// Looks, then calls a control for the phone, then looks again.
  void ofThePhone(const QString& method, const QVariantList& arguments = {});
  void call(const char* interface, const QString& method, const QVariantList& arguments,
            const std::function<void(const QVariantList&)>& then = {});
  /// Undoes the fault before, since of two the service takes the first, and causes another, if it has a name.
  void setFault(const QString& fault, const QString& method = {}, const QVariantList& arguments = {});
  void showFault(const QString& fault);
  void take(const QVariantList& devices);

  QString m_address;
  QString m_name;
  bool m_isInRange = true;
  QString m_fault;
};

#endif
