#include "PhoneOnTheDesk.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

const char kService[] = "com.zelk.linux.bluetooth";
const char kPath[] = "/com/zelk/linux/bluetooth/sim";
const char kOutside[] = "com.zelk.linux.bluetooth.sim.Outside";
const char kFaults[] = "com.zelk.linux.bluetooth.sim.Faults";

constexpr quint32 kManyAnswers = 1000000;
constexpr quint32 kSlowMs = 2000;

struct Device {
  QString address;
  QString name;
  bool isInRange = false;
  bool isPaired = false;
  bool isConnected = false;
};

/// The first that is connected, or else the first.
Device choose(const QDBusArgument& list) {
  Device chosen;
  list.beginArray();
  while (!list.atEnd()) {
    Device device;
    list.beginStructure();
    list >> device.address >> device.name >> device.isInRange >> device.isPaired >> device.isConnected;
    list.endStructure();
    if (chosen.address.isEmpty() || (device.isConnected && !chosen.isConnected)) {
      chosen = device;
    }
  }
  list.endArray();
  return chosen;
}

QDBusMessage message(const char* interface, const QString& method, const QVariantList& arguments) {
  QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kService), QLatin1String(kPath),
                                                     QLatin1String(interface), method);
  call.setArguments(arguments);
  return call;
}

}  // namespace

PhoneOnTheDesk::PhoneOnTheDesk(QObject* parent) : QObject(parent), m_bus(QDBusConnection::sessionBus()) {
  find([] {});
}

void PhoneOnTheDesk::find(const std::function<void()>& then) {
  auto* const watcher =
      new QDBusPendingCallWatcher(m_bus.asyncCall(message(kOutside, "ListDevices", {})), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, then](QDBusPendingCallWatcher* call) {
    call->deleteLater();
    const QDBusMessage reply = call->reply();
    if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty()) {
      const Device device = choose(reply.arguments().constFirst().value<QDBusArgument>());
      m_address = device.address;
      m_name = device.name;
      m_isInRange = device.isInRange;
      Q_EMIT changed();
    }
    then();
  });
}

void PhoneOnTheDesk::outside(const QString& method, const QVariantList& arguments) {
  find([this, method, arguments] {
    m_bus.asyncCall(message(kOutside, method, QVariantList{m_address} + arguments));
  });
}

void PhoneOnTheDesk::faults(const QString& method, const QVariantList& arguments) {
  m_bus.asyncCall(message(kFaults, method, arguments));
}

void PhoneOnTheDesk::setInRange(bool inRange) {
  outside("SetInRange", {inRange});
  find([] {});
}

void PhoneOnTheDesk::ring(const QString& number) { outside("Call", {number}); }
void PhoneOnTheDesk::answer() { outside("AnswerCall"); }
void PhoneOnTheDesk::hangUp() { outside("HangUp", {0}); }
void PhoneOnTheDesk::play() { outside("Play"); }
void PhoneOnTheDesk::pause() { outside("Pause"); }
void PhoneOnTheDesk::acceptPairing() { outside("AcceptPairing"); }
void PhoneOnTheDesk::setBattery(int bars) { outside("SetBattery", {bars}); }

void PhoneOnTheDesk::slowDown() { faults("DelayAnswers", {QStringLiteral("*"), kManyAnswers, kSlowMs}); }
void PhoneOnTheDesk::hang() { faults("DropAnswers", {QStringLiteral("*"), kManyAnswers}); }
void PhoneOnTheDesk::recover() { faults("AnswerAgain"); }
void PhoneOnTheDesk::die() { faults("Die", {quint32{1}}); }
