#include "PhoneOnTheDesk.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace {

const char kService[] = "com.zelk.linux.bluetooth";
const char kPath[] = "/com/zelk/linux/bluetooth/sim";
const char kOutside[] = "com.zelk.linux.bluetooth.sim.Outside";
const char kFaults[] = "com.zelk.linux.bluetooth.sim.Faults";

constexpr quint32 kManyAnswers = 1000000;
constexpr quint32 kSlowMs = 2000;

const char kAnother[] = R"({"address": "%1", "name": "Dora's phone", "profiles": ["hfp", "a2dp"]})";

/// Of the desk's own, and made anew when the bus has gone: the shared one stays closed then.
QDBusConnection bus() {
  const QString name = QStringLiteral("phone on the desk");
  QDBusConnection known(name);
  if (known.isConnected()) {
    return known;
  }
  QDBusConnection::disconnectFromBus(name);
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
}

struct Device {
  QString address;
  QString name;
  bool isInRange = false;
  bool isPaired = false;
  bool isConnected = false;
};

QList<Device> devicesOf(const QDBusArgument& list) {
  QList<Device> devices;
  list.beginArray();
  while (!list.atEnd()) {
    Device device;
    list.beginStructure();
    list >> device.address >> device.name >> device.isInRange >> device.isPaired >> device.isConnected;
    list.endStructure();
    devices.append(device);
  }
  list.endArray();
  return devices;
}

}  // namespace

void PhoneOnTheDesk::call(const char* interface, const QString& method, const QVariantList& arguments,
                          const std::function<void(const QVariantList&)>& then) {
  QDBusMessage message = QDBusMessage::createMethodCall(QLatin1String(kService), QLatin1String(kPath),
                                                        QLatin1String(interface), method);
  message.setArguments(arguments);
  // Nobody is at the desk where no service is: none is to be started for it.
  message.setAutoStartService(false);
  auto* const watcher = new QDBusPendingCallWatcher(bus().asyncCall(message), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [then](QDBusPendingCallWatcher* finished) {
    finished->deleteLater();
    const QDBusMessage reply = finished->reply();
    if (then && reply.type() == QDBusMessage::ReplyMessage) {
      then(reply.arguments());
    }
  });
}

void PhoneOnTheDesk::look() {
  call(kOutside, QStringLiteral("ListDevices"), {}, [this](const QVariantList& answer) { take(answer); });
}

void PhoneOnTheDesk::take(const QVariantList& answer) {
  const QList<Device> devices = devicesOf(answer.value(0).value<QDBusArgument>());
  const Device* chosen = devices.isEmpty() ? nullptr : &devices.constFirst();
  for (const Device& device : devices) {
    if (device.address == m_address && !device.isInRange) {
      chosen = &device;
      break;
    }
    if (device.isConnected && !chosen->isConnected) {
      chosen = &device;
    }
  }
  if (chosen != nullptr) {
    m_address = chosen->address;
    m_name = chosen->name;
    m_isInRange = chosen->isInRange;
    Q_EMIT changed();
  }
}

void PhoneOnTheDesk::ofThePhone(const QString& method, const QVariantList& arguments) {
  call(kOutside, QStringLiteral("ListDevices"), {}, [this, method, arguments](const QVariantList& answer) {
    take(answer);
    call(kOutside, method, QVariantList{m_address} + arguments, [this](const QVariantList&) { look(); });
  });
}

void PhoneOnTheDesk::setFault(const QString& fault, const QString& method, const QVariantList& arguments) {
  call(kFaults, QStringLiteral("AnswerAgain"), {}, [this, fault, method, arguments](const QVariantList&) {
    if (fault.isEmpty()) {
      showFault(fault);
      return;
    }
    call(kFaults, method, arguments, [this, fault](const QVariantList&) { showFault(fault); });
  });
}

void PhoneOnTheDesk::showFault(const QString& fault) {
  if (m_fault != fault) {
    m_fault = fault;
    Q_EMIT faultChanged();
  }
}

void PhoneOnTheDesk::setInRange(bool inRange) { ofThePhone(QStringLiteral("SetInRange"), {inRange}); }
void PhoneOnTheDesk::ring(const QString& number) { ofThePhone(QStringLiteral("Call"), {number}); }
void PhoneOnTheDesk::answer() { ofThePhone(QStringLiteral("AnswerCall")); }
void PhoneOnTheDesk::hangUp() { ofThePhone(QStringLiteral("HangUp"), {0}); }
void PhoneOnTheDesk::play() { ofThePhone(QStringLiteral("Play")); }
void PhoneOnTheDesk::pause() { ofThePhone(QStringLiteral("Pause")); }
void PhoneOnTheDesk::setBattery(int bars) { ofThePhone(QStringLiteral("SetBattery"), {bars}); }
void PhoneOnTheDesk::setSignal(int bars) { ofThePhone(QStringLiteral("SetSignal"), {bars}); }
void PhoneOnTheDesk::setOperator(const QString& name) { ofThePhone(QStringLiteral("SetOperator"), {name}); }
void PhoneOnTheDesk::setRoaming(bool roaming) { ofThePhone(QStringLiteral("SetRoaming"), {roaming}); }

void PhoneOnTheDesk::acceptPairing(const QString& address) {
  call(kOutside, QStringLiteral("AcceptPairing"), {address});
}

void PhoneOnTheDesk::bringAnother() {
  call(kOutside, QStringLiteral("AddDevice"), {QString::fromUtf8(kAnother).arg(anotherAddress())});
}

QString PhoneOnTheDesk::anotherAddress() { return QStringLiteral("00:1A:7D:DA:71:16"); }

void PhoneOnTheDesk::slowDown() {
  setFault(QStringLiteral("slow"), QStringLiteral("DelayAnswers"),
           {QStringLiteral("*"), kManyAnswers, kSlowMs});
}
void PhoneOnTheDesk::hang() {
  setFault(QStringLiteral("hung"), QStringLiteral("DropAnswers"), {QStringLiteral("*"), kManyAnswers});
}
void PhoneOnTheDesk::recover() { setFault(QString()); }
void PhoneOnTheDesk::die() {
  call(kFaults, QStringLiteral("Die"), {quint32{1}});
  showFault(QString());  // the next one has none
}
