#ifndef TESTS_QT_FAKEPHONE_H
#define TESTS_QT_FAKEPHONE_H

#include <QObject>
#include <QQmlEngine>

#include "BtService.h"
#include "KnownService.h"

namespace bttest {

/// For tests in QML: a BtService over a service in memory, and what happens to it.
///
///   FakePhone { id: fake }
///   PhoneScreen { bt: fake.service }
class FakePhone : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(btqt::BtService* service READ service CONSTANT)

 public:
  explicit FakePhone(QObject* parent = nullptr) : QObject(parent), m_service(m_fake) {
    QQmlEngine::setObjectOwnership(&m_service, QQmlEngine::CppOwnership);
  }

  btqt::BtService* service() { return &m_service; }

  Q_INVOKABLE void settle() { m_fake.Settle(); }
  Q_INVOKABLE void advance(int milliseconds) { m_fake.Advance(std::chrono::milliseconds(milliseconds)); }
  Q_INVOKABLE void leave() { come(btasync::Availability::Absent); }
  Q_INVOKABLE void comeBack() { come(btasync::Availability::Present); }
  Q_INVOKABLE void ring(const QString& number) {
    m_fake.WillAnswer(&btasync::Service::CurrentCalls,
                      CallsOf({Slot(1, btasync::BT_CALL_INCOMING, number.toStdString())}));
    emitEvent(btasync::CallStatusChanged{1, btasync::BT_CALL_INCOMING, 1});
  }
  Q_INVOKABLE void askToPair(const QString& address, const QString& digits) {
    emitEvent(btasync::PairRequested{btasync::Address(address.toStdString()), digits.toStdString(), false,
                                     btasync::BT_PAIR_REQUEST_CONFIRMATION});
  }
  Q_INVOKABLE void endPairing(const QString& address) {
    emitEvent(btasync::PairChanged{btasync::BT_PAIR_FAILED, btasync::BT_PAIR_REASON_REJECTED_REMOTE,
                                   btasync::Address(address.toStdString())});
  }
  Q_INVOKABLE void find(const QString& address, const QString& name) {
    emitEvent(btasync::DeviceFound{btasync::Address(address.toStdString()), name.toStdString(),
                                   btasync::BT_SUPPORT_NONE});
  }
  Q_INVOKABLE void acceptPower(int after) {
    m_fake.WillAccept(&btasync::Service::SetPower)
        .After(std::chrono::milliseconds(after))
        .Emits(btasync::PowerChanged{btasync::BT_POWER_OFF}, std::chrono::milliseconds(after));
  }
  Q_INVOKABLE void hang() { m_fake.Hang(); }
  Q_INVOKABLE void goOn() {
    m_fake.GoOn();
    m_fake.Settle();
  }

 private:
  void come(btasync::Availability availability) {
    m_fake.SetAvailability(availability);
    m_fake.Settle();
  }
  template <typename Event>
  void emitEvent(Event event) {
    m_fake.Emit(std::move(event));
    m_fake.Settle();
  }

  KnownService m_fake;
  btqt::BtService m_service;
};

}  // namespace bttest

#endif
