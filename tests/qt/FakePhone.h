#ifndef TESTS_QT_FAKEPHONE_H
#define TESTS_QT_FAKEPHONE_H

#include <QObject>
#include <QQmlEngine>
#include <QStringList>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

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
  /// From the next time that somebody asks for them; each has one number, but the first has three.
  Q_INVOKABLE void knowContacts(int count) {
    std::vector<MWPTypeContact> contacts;
    for (int id = 1; id <= count; ++id) {
      contacts.push_back(
          Contact(id, "Person " + std::to_string(id), "Of the book", std::to_string(1000 + id)));
    }
    if (!contacts.empty()) {
      contacts.front().listNumbers = {{1, {"0171"}}, {2, {"030"}}, {3, {"089"}}};
    }
    m_fake.WillAnswer(&btasync::Service::Contacts, std::move(contacts));
  }
  Q_INVOKABLE void askForPin(const QString& address) {
    emitEvent(btasync::PairRequested{btasync::Address(address.toStdString()), "", false,
                                     btasync::BT_PAIR_REQUEST_PIN_CODE});
  }
  /// What the service does with a request: an order, by its name on the bus.
  Q_INVOKABLE void willAccept(const QString& order, int after = 0) {
    ordered(order, [after](auto& fake, auto request) {
      fake.WillAccept(request).After(std::chrono::milliseconds(after));
    });
  }
  Q_INVOKABLE void willRefuse(const QString& order) {
    ordered(order, [](auto& fake, auto request) { fake.WillRefuse(request); });
  }
  Q_INVOKABLE void willFail(const QString& order) {
    ordered(order, [](auto& fake, auto request) { fake.WillFail(request, btasync::Reason::ServiceError); });
  }
  /// The requests of that name since the test began, with their arguments, as the bus has them.
  Q_INVOKABLE QStringList requests(const QString& name) {
    m_fake.Settle();
    QStringList texts;
    for (const std::string& request : m_fake.Requests()) {
      const QString text = QString::fromStdString(request);
      if (text.startsWith(name + QLatin1Char('('))) {
        texts.append(text);
      }
    }
    return texts;
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
  template <typename Do>
  void ordered(const QString& order, Do what) {
    using btasync::Service;
    if (order == QLatin1String("DialCall")) {
      what(m_fake, &Service::DialCall);
    } else if (order == QLatin1String("AcceptCall")) {
      what(m_fake, &Service::AcceptCall);
    } else if (order == QLatin1String("RejectCall")) {
      what(m_fake, &Service::RejectCall);
    } else if (order == QLatin1String("AnswerPair")) {
      what(m_fake, &Service::AnswerPair);
    } else if (order == QLatin1String("PlayMusic")) {
      what(m_fake, &Service::Play);
    } else if (order == QLatin1String("StopMusic")) {
      what(m_fake, &Service::Pause);
    } else if (order == QLatin1String("SetPower")) {
      what(m_fake, &Service::SetPower);
    } else {
      qWarning("FakePhone: no order is called %s", qPrintable(order));
    }
  }
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
