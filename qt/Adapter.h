#ifndef QT_ADAPTER_H
#define QT_ADAPTER_H

#include <QString>

#include "Subject.h"

namespace btqt {

/// The head unit's own adapter, and the search for devices.
class BTASYNCQT_API Adapter : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.adapter is one")
  Q_PROPERTY(Power power READ power NOTIFY powerChanged)
  /// That other devices see.
  Q_PROPERTY(QString name READ name NOTIFY nameChanged)
  Q_PROPERTY(QString address READ address NOTIFY addressChanged)
  /// Visible to other devices.
  Q_PROPERTY(bool discoverable READ isDiscoverable NOTIFY discoverableChanged)
  /// Searches for devices: Devices.found.
  Q_PROPERTY(bool scanning READ isScanning NOTIFY scanningChanged)

 public:
  /// As btasync::PowerStatus.
  enum Power { PowerOff, PowerOn, PowerTurningOff, PowerTurningOn };
  Q_ENUM(Power)

  explicit Adapter(BtService& service);

  Power power() const { return m_power; }
  QString name() const { return m_name; }
  QString address() const { return m_address; }
  bool isDiscoverable() const { return m_isDiscoverable; }
  bool isScanning() const { return m_isScanning; }

  /// Refused if it is in that state or on its way.
  Q_INVOKABLE void setPower(bool on, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void setName(const QString& name, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void setDiscoverable(bool on, btqt::Operation* operation = nullptr);
  Q_INVOKABLE void startScan(btqt::Operation* operation = nullptr);
  Q_INVOKABLE void stopScan(btqt::Operation* operation = nullptr);

 Q_SIGNALS:
  void powerChanged();
  void nameChanged();
  void addressChanged();
  void discoverableChanged();
  void scanningChanged();

 private:
  void show(const btasync::State& state, unsigned parts) override;

  Power m_power = PowerOff;
  QString m_name;
  QString m_address;
  bool m_isDiscoverable = false;
  bool m_isScanning = false;
};

}  // namespace btqt

#endif
