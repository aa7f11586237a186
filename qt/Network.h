#ifndef QT_NETWORK_H
#define QT_NETWORK_H

#include <QString>

#include "Subject.h"

namespace btqt {

/// The phone that calls go over, and its network.
class BTASYNCQT_API Network : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.network is one")
  /// The phone's address, empty if none is connected.
  Q_PROPERTY(QString phone READ phone NOTIFY phoneChanged)
  Q_PROPERTY(bool available READ isAvailable NOTIFY availableChanged)
  Q_PROPERTY(QString operatorName READ operatorName NOTIFY operatorNameChanged)
  /// 0 to 5 bars.
  Q_PROPERTY(int signal READ signal NOTIFY signalChanged)
  Q_PROPERTY(bool roaming READ isRoaming NOTIFY roamingChanged)
  /// 0 to 5 bars.
  Q_PROPERTY(int battery READ battery NOTIFY batteryChanged)

 public:
  explicit Network(BtService& service);

  QString phone() const { return m_phone; }
  bool isAvailable() const { return m_isAvailable; }
  QString operatorName() const { return m_operatorName; }
  int signal() const { return m_signal; }
  bool isRoaming() const { return m_isRoaming; }
  int battery() const { return m_battery; }

 Q_SIGNALS:
  void phoneChanged();
  void availableChanged();
  void operatorNameChanged();
  void signalChanged();
  void roamingChanged();
  void batteryChanged();

 private:
  void show(const btasync::State& state, unsigned parts) override;

  QString m_phone;
  bool m_isAvailable = false;
  QString m_operatorName;
  int m_signal = 0;
  bool m_isRoaming = false;
  int m_battery = 0;
};

}  // namespace btqt

#endif
