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
  /// Of the phone that is connected, or else of the first that there is.
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(bool inRange READ isInRange WRITE setInRange NOTIFY changed)

 public:
  explicit PhoneOnTheDesk(QObject* parent = nullptr);

  QString name() const { return m_name; }
  bool isInRange() const { return m_isInRange; }
  void setInRange(bool inRange);

  Q_INVOKABLE void ring(const QString& number);
  Q_INVOKABLE void answer();
  Q_INVOKABLE void hangUp();
  Q_INVOKABLE void play();
  Q_INVOKABLE void pause();
  Q_INVOKABLE void acceptPairing();
  Q_INVOKABLE void setBattery(int bars);

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

 private:
  void find(const std::function<void()>& then);
  void outside(const QString& method, const QVariantList& arguments = {});
  void faults(const QString& method, const QVariantList& arguments = {});

  QDBusConnection m_bus;
  QString m_address;
  QString m_name;
  bool m_isInRange = true;
};

#endif
