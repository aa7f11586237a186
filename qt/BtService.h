#ifndef QT_BTSERVICE_H
#define QT_BTSERVICE_H

#include <QObject>
#include <QQmlEngine>
#include <memory>
#include <vector>

#include <btasync/Mirror.h>
#include <btasync/Service.h>

#include "Adapter.h"
#include "CallLogs.h"
#include "Calls.h"
#include "Contacts.h"
#include "Devices.h"
#include "Download.h"
#include "Export.h"
#include "Music.h"
#include "Network.h"

namespace btqt {

class LoopBridge;

/// The Bluetooth service, for screens of Qt Quick and of widgets. Nothing of it ever blocks.
///
///   BtService { id: bt }
///   Text { text: bt.music.title; opacity: bt.music.fresh ? 1 : 0.4 }
///
/// The subjects are made when they are first used, and the service reports only what they show. One object
/// for each thread is enough. It belongs to the thread that makes it, which must have an event loop of Qt; it
/// needs the application object. As with any object, do not delete it inside one of its signals: use
/// deleteLater().
class BTASYNCQT_API BtService : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Availability availability READ availability NOTIFY availabilityChanged)
  /// The service is there, and all subjects that are used are fresh.
  Q_PROPERTY(bool fresh READ isFresh NOTIFY freshChanged)
  Q_PROPERTY(btqt::Adapter* adapter READ adapter CONSTANT)
  Q_PROPERTY(btqt::Devices* devices READ devices CONSTANT)
  Q_PROPERTY(btqt::Calls* calls READ calls CONSTANT)
  Q_PROPERTY(btqt::Network* network READ network CONSTANT)
  Q_PROPERTY(btqt::Music* music READ music CONSTANT)
  Q_PROPERTY(btqt::Contacts* contacts READ contacts CONSTANT)
  Q_PROPERTY(btqt::CallLogs* callLogs READ callLogs CONSTANT)
  Q_PROPERTY(btqt::Download* download READ download CONSTANT)

 public:
  enum Availability {
    Unknown,  ///< the first moments
    NoBus,    ///< no session bus, or the connection to it was lost; tried again every second
    Absent,   ///< the service is not there
    Present,
  };
  Q_ENUM(Availability)

  explicit BtService(QObject* parent = nullptr);
  /// Over a service of the caller's, such as btasync::FakeService in a test; it has to outlive this.
  explicit BtService(btasync::Service& service, QObject* parent = nullptr);
  ~BtService() override;

  Availability availability() const { return m_availability; }
  bool isFresh() const { return m_isFresh; }

  Adapter* adapter() { return made(m_adapter); }
  Devices* devices() { return made(m_devices); }
  Calls* calls() { return made(m_calls); }
  Network* network() { return made(m_network); }
  Music* music() { return made(m_music); }
  Contacts* contacts() { return made(m_contacts); }
  CallLogs* callLogs() { return made(m_callLogs); }
  Download* download() { return made(m_download); }

  /// What it is made over, for what no subject shows.
  btasync::Service& service() { return m_service; }
  const btasync::State& state() const { return m_mirror->Now(); }
  /// Asks again for parts of the state (btasync::Part).
  void refresh(unsigned parts) { m_mirror->Refresh(parts); }

 Q_SIGNALS:
  void availabilityChanged();
  void freshChanged();

 private:
  template <typename Kind>
  Kind* made(std::unique_ptr<Kind>& subject) {
    if (subject == nullptr) {
      subject = std::make_unique<Kind>(*this);
      add(*subject);
    }
    return subject.get();
  }
  void add(Subject& subject);
  void show(const btasync::State& state, unsigned parts);
  void setFresh();

  std::shared_ptr<LoopBridge> m_bridge;
  std::unique_ptr<btasync::Service> m_own;
  btasync::Service& m_service;
  std::unique_ptr<btasync::Mirror> m_mirror;
  Availability m_availability = Unknown;
  bool m_isFresh = false;
  std::vector<Subject*> m_subjects;
  std::unique_ptr<Adapter> m_adapter;
  std::unique_ptr<Devices> m_devices;
  std::unique_ptr<Calls> m_calls;
  std::unique_ptr<Network> m_network;
  std::unique_ptr<Music> m_music;
  std::unique_ptr<Contacts> m_contacts;
  std::unique_ptr<CallLogs> m_callLogs;
  std::unique_ptr<Download> m_download;
};

}  // namespace btqt

#endif
